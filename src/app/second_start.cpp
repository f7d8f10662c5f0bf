#include "app/second_start.h"

#include <QCoreApplication>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace quenoria {

bool openDemonstration()
{
    return QProcess::startDetached(QCoreApplication::applicationFilePath(), {u"--demo"_s});
}

} // namespace quenoria
