#pragma once

#include <QWidget>

namespace quenoria {

/// What stands where a list would be while it is empty: a large symbol, what is missing, and what
/// to do next.
class EmptyState : public QWidget {
    Q_OBJECT

public:
    EmptyState(const QString &symbolName, const QString &title, const QString &description,
               QWidget *parent = nullptr);
};

} // namespace quenoria
