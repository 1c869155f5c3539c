#pragma once

#include <QString>

class QUrl;

namespace celestrix {

/// The path of the file that the address names; empty where it names none that can be opened here. A file: address may
/// name its machine: "localhost" and this machine's own name are this machine. The files of any other are out of reach,
/// but for what Windows shares.
QString LocalFile(QUrl address);

}  // namespace celestrix
