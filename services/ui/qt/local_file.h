#pragma once

#include <filesystem>

class QUrl;

namespace celestrix {

/// The path of the file that the address names, byte for byte; empty if it names none that can be opened here. A file:
/// address may name a machine: "localhost" and this machine's own name mean this machine. Files of other machines
/// cannot be opened, except on Windows, where they may be shared.
std::filesystem::path LocalFile(const QUrl& address);

}  // namespace celestrix
