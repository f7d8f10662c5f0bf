#include "ui/table/tick_columns.h"

namespace quenoria {

namespace {

ManyContacts tickForDeletion(ProspectStore & /*store*/, TableState &state, bool on,
                             const IdSet &ids)
{
    if (on) {
        state.deleteSelection.insert(ids.begin(), ids.end());
    } else {
        for (const QString &id : ids)
            state.deleteSelection.erase(id);
    }
    return {.changed = ids};
}

} // namespace

ContactColumn deletionColumn()
{
    return {
        .header = u"Supprimer",
        .width = 95,
        .kind = CellKind::check,
        .value =
            [](const Cell &cell) { return cell.state.deleteSelection.contains(cell.contact.id); },
        .edit =
            [](const Cell &cell, const QVariant &ticked) {
                tickForDeletion(cell.store, cell.state, ticked.toBool(), {cell.contact.id});
            },
        .tickMany = tickForDeletion,
        .keptByTable = true};
}

ContactColumn stopColumn()
{
    return {.header = u"STOP",
            .width = 60,
            .kind = CellKind::check,
            .sort = SortColumn::stopped,
            .value = [](const Cell &cell) { return cell.store.isStopped(cell.contact); },
            .edit =
                [](const Cell &cell, const QVariant &stopped) {
                    cell.store.setStopped(stopped.toBool(), cell.contact);
                },
            .tickMany = [](ProspectStore &store, TableState & /*state*/, bool on,
                           const IdSet &ids) { return store.setStopped(on, ids); },
            .undoable = true,
            .tellsOfSends = true};
}

} // namespace quenoria
