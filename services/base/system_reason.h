#pragma once

#include <string>
#include <system_error>

namespace celestrix {

/// Why the system refused: its own words for the error, in English whatever the user's language, as all of the
/// program's texts are ("No such file or directory").
std::string SystemReason(const std::error_code& error);

}  // namespace celestrix
