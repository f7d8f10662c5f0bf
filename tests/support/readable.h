#pragma once

#include <QString>

#include <ostream>

/// Failed expectations show a text as text.
inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}
