#include "platform/qt/clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace quenoria {

void Clipboard::setText(const QString &text) { QGuiApplication::clipboard()->setText(text); }

} // namespace quenoria
