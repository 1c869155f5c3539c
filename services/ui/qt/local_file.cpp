#include "services/ui/qt/local_file.h"

#include <QSysInfo>
#include <QUrl>

namespace celestrix {

QString LocalFile(QUrl address) {
  for (const QString& here : {QStringLiteral("localhost"), QSysInfo::machineHostName()})
    if (address.host().compare(here, Qt::CaseInsensitive) == 0) address.setHost({});
#ifndef Q_OS_WIN  // there, what another machine shares is a file like any other
  if (!address.host().isEmpty()) return {};
#endif
  return address.toLocalFile();
}

}  // namespace celestrix
