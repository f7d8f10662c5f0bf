#pragma once

#include "platform/clock.h"
#include "platform/mail_transport.h"
#include "platform/whole_file.h"

#include <QDateTime>

#include <mutex>

namespace quenoria {

/// An SMS as the demonstration keeps it.
struct FiledSms {
    QString service;
    QString handle;
    QString text;
    QString attachment; ///< absolute path, or empty
};

/// The folder where the demonstration keeps what would have been sent, one readable file per
/// message: ".txt" for an SMS, with a copy of its attachment beside it, ".eml" for an e-mail.
/// File names are unique and sort by time. Every operation may be called from any thread.
class Outbox {
public:
    Outbox(QString folder, const Clock &clock, FileWriter &files);

    [[nodiscard]] QString folder() const { return m_folder; }

    [[nodiscard]] TransportResult file(const FiledSms &sms);
    [[nodiscard]] TransportResult file(const OutgoingMessage &email);

private:
    QDateTime now() const;
    QString freeName();
    TransportResult write(const QString &path, const QByteArray &content);
    TransportResult copy(const QString &path, const QString &copyPath);

    QString m_folder;
    const Clock &m_clock;
    FileWriter &m_files;
    std::mutex m_mutex;
    int m_count = 0; ///< messages since the start
};

} // namespace quenoria
