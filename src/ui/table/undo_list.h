#pragma once

#include "ui/table/contact_columns.h"

#include <QObject>

#include <functional>

namespace quenoria {

/// The last acts by hand on the table's cells, and how to take them back. What may be undone the
/// columns say; what was sent, dated or deleted never is.
///
/// An undo leaves alone whatever has changed since. A STOP is only taken away again as long as
/// nothing else was done and nothing else can have asked for it.
class UndoList : public QObject {
    Q_OBJECT

public:
    /// One cell before and after an act.
    struct Step {
        QString contact;
        int column;
        QVariant before;
        QVariant after;
    };

    UndoList(ProspectStore &store, TableState &state);

    /// Does something to these contacts in a column, and keeps what they were before.
    void record(int column, const IdSet &ids, const std::function<void()> &act);

    /// Takes the last act back, with one write of each file; what became of it, in words.
    [[nodiscard]] QString undoLast();

    /// The same of one act, while it is the last one.
    [[nodiscard]] QString undo(int act);

    /// A reply or a list may have asked for the STOPs that were set by hand.
    void keepStops();

Q_SIGNALS:
    void recorded(int act, const QString &inWords);

private:
    struct Act {
        int number;
        QString inWords;
        std::vector<Step> steps; ///< those of one contact side by side
        bool isKept = false;     ///< it sets STOPs that are not to be taken away so
    };

    std::vector<Step> valuesOf(const std::vector<int> &columns, const IdSet &ids) const;
    QString inWords(int column, const std::vector<Step> &steps) const;
    QString takeBack(const Act &act);
    bool takeBack(std::span<const Step> ofContact);

    ProspectStore &m_store;
    TableState &m_state;
    std::vector<Act> m_acts; ///< oldest first
    int m_count = 0;
};

} // namespace quenoria
