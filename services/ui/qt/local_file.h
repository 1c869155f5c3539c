#pragma once

#include <QString>

class QUrl;

namespace celestrix {

/// The path of the file that the address names; empty if it names none that can be opened here. A file: address may
/// name a machine: "localhost" and this machine's own name mean this machine. Files of other machines cannot be
/// opened, except on Windows, where they may be shared.
QString LocalFile(QUrl address);

}  // namespace celestrix
