#include "platform/qt/start_folder.h"

#include <QFileInfo>
#include <QStorageInfo>

#include <future>
#include <thread>

namespace quenoria {

bool mayBrowse(const QString &folder)
{
    const QFileInfo info(folder);
    if (!info.isDir() || !info.isReadable())
        return false;
    const QByteArray kind = QStorageInfo(folder).fileSystemType();
    return kind != "proc" && kind != "sysfs";
}

QString startFolder(const QString &wanted, const QString &otherwise,
                    std::chrono::milliseconds patience,
                    const std::function<bool(const QString &)> &mayOpen)
{
    std::promise<bool> answer;
    std::future<bool> answered = answer.get_future();
    std::thread([wanted, mayOpen, answer = std::move(answer)]() mutable {
        answer.set_value(mayOpen(wanted));
    }).detach();
    const bool isInTime = answered.wait_for(patience) == std::future_status::ready;
    return isInTime && answered.get() ? wanted : otherwise;
}

} // namespace quenoria
