#pragma once

#include <QComboBox>

#include <vector>

namespace quenoria {

/// One row of a picker: what it stands for and what it shows.
struct Choice {
    QString id;
    QString text;
    bool operator==(const Choice &) const = default;
};

/// A picker whose rows stand for ids. An id without a row leaves it without a selection.
class ChoicePicker : public QComboBox {
    Q_OBJECT

public:
    explicit ChoicePicker(const QString &accessibleName, QWidget *parent = nullptr);

    /// Replaces the rows; the last one is set apart by a line when it is a command of its own.
    enum class LastRow { ordinary, setApart };
    void setChoices(const std::vector<Choice> &choices, const QString &selected,
                    LastRow last = LastRow::ordinary);

Q_SIGNALS:
    /// The user chose a row.
    void picked(const QString &id);
};

} // namespace quenoria
