#include "services/ui/qt/local_file.h"

#include <QSysInfo>
#include <QUrl>

namespace celestrix {

QString LocalFile(QUrl address) {
  const QString host = address.host();
  const auto isHost = [&](const QString& name) { return host.compare(name, Qt::CaseInsensitive) == 0; };
  if (isHost(QStringLiteral("localhost")) || isHost(QSysInfo::machineHostName())) address.setHost({});
#ifndef Q_OS_WIN  // there, what another machine shares is a file like any other
  if (!address.host().isEmpty()) return {};
#endif
  return address.toLocalFile();
}

}  // namespace celestrix
