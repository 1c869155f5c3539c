#pragma once

#include <string>
#include <system_error>

namespace celestrix {

/// The system's text for the error ("No such file or directory"), in English whatever the user's language, like all
/// texts of the program.
std::string SystemReason(const std::error_code& error);

}  // namespace celestrix
