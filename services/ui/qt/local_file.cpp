#include "services/ui/qt/local_file.h"

#include <QSysInfo>
#include <QUrl>

namespace celestrix {

std::filesystem::path LocalFile(const QUrl& address) {
  // The system would end the name at a NUL byte.
  if (!address.isLocalFile() || address.path(QUrl::FullyEncoded).contains(QLatin1String("%00"))) return {};
#ifdef Q_OS_WIN  // there, what another machine shares is a file like any other
  return address.toLocalFile().toStdU16String();
#else
  const QString host = address.host();
  for (const QString& here : {QString(), QStringLiteral("localhost"), QSysInfo::machineHostName()})
    if (host.compare(here, Qt::CaseInsensitive) == 0)
      // Not toLocalFile: old archives have names that are not UTF-8.
      return QByteArray::fromPercentEncoding(address.path(QUrl::FullyEncoded).toLatin1()).toStdString();
  return {};
#endif
}

}  // namespace celestrix
