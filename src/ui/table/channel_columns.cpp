#include "ui/table/channel_columns.h"

#include "ui/channels/channel_descriptor.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

CellChoices choicesOf(Channel channel, const ProspectStore &store)
{
    CellChoices choices;
    for (const EmailTemplate &entry : store.templates(channel))
        choices << CellChoice{entry.id, entry.title};
    return choices;
}

bool isUnderWay(const Cell &cell, Channel channel)
{
    const auto found = cell.state.underWay.find(channel);
    return found != cell.state.underWay.end() && found->second.contains(cell.contact.id);
}

/// One for each channel.
CellButtons sendButtons(const Cell &cell)
{
    CellButtons buttons;
    for (const ChannelDescriptor *channel : channels()) {
        const bool isSent = isUnderWay(cell, channel->channel);
        const QString shown = isSent ? u"Envoi automatique…"_s
                              : cell.state.automatic.contains(channel->channel)
                                  ? channel->columns.send
                                  : channel->columns.prepare;
        buttons << CellButton{RowAction::send(channel->channel), shown, shown, {}, !isSent};
    }
    return buttons;
}

} // namespace

ContactColumn selectionColumn(const ChannelDescriptor &channel)
{
    const auto isSelected = [which = channel.channel](const Cell &cell) {
        return cell.store.isSelected(which, cell.contact);
    };
    return {.header = channel.columns.selection,
            .width = channel.columns.selectionWidth,
            .kind = CellKind::check,
            .sort = SortColumn{SortColumn::selection, channel.channel},
            .value = isSelected,
            .edit =
                [which = channel.channel](const Cell &cell, const QVariant &selected) {
                    cell.store.select(which, selected.toBool(), cell.contact);
                },
            .available =
                [isSelected, which = channel.channel](const Cell &cell) {
                    return isSelected(cell) || (!cell.store.isStopped(cell.contact) &&
                                                cell.store.isReachable(which, cell.contact));
                },
            .tickMany = [which = channel.channel](
                            ProspectStore &store, TableState & /*state*/, bool on,
                            const IdSet &ids) { return store.setSelected(which, on, ids); },
            .unreachable = channel.columns.unreachable,
            .undoable = true,
            .tellsOfSends = true};
}

ContactColumn sentColumn(const ChannelDescriptor &channel)
{
    return {.header = channel.columns.sent,
            .width = channel.columns.sentWidth,
            .kind = CellKind::check,
            .sort = SortColumn{SortColumn::sent, channel.channel},
            .value = [which = channel.channel](
                         const Cell &cell) { return cell.store.isMarkedSent(which, cell.contact); },
            .edit =
                [which = channel.channel](const Cell &cell, const QVariant &sent) {
                    cell.store.markSent(which, sent.toBool(), cell.contact);
                },
            .tickMany = [which = channel.channel](
                            ProspectStore &store, TableState & /*state*/, bool on,
                            const IdSet &ids) { return store.setSent(which, on, ids); },
            .tellsOfSends = true,
            .recordsDates = true};
}

ContactColumn templateColumn(const ChannelDescriptor &channel)
{
    const Channel which = channel.channel;
    const auto title = [which](const Cell &cell) {
        return cell.store.assignedTemplate(which, cell.contact).title;
    };
    return {.header = channel.columns.message,
            .width = channel.columns.messageWidth,
            .kind = CellKind::picker,
            .sort = SortColumn{SortColumn::message, channel.channel},
            .text = title,
            .value =
                [which](const Cell &cell) {
                    return cell.store.assignedTemplate(which, cell.contact).id;
                },
            .edit =
                [which](const Cell &cell, const QVariant &id) {
                    cell.store.assignTemplate(which, id.toString(), cell.contact);
                },
            .choices = [which](const ProspectStore &store) { return choicesOf(which, store); },
            .searched = title,
            .undoable = true};
}

ContactColumn actionsColumn()
{
    return {.header = u"Actions",
            .width = 230,
            .kind = CellKind::buttons,
            .buttons = sendButtons,
            .followsSwitches = true};
}

bool isSentOnAnyChannel(const Cell &cell)
{
    return std::ranges::any_of(allChannels, [&cell](Channel channel) {
        return cell.store.isMarkedSent(channel, cell.contact);
    });
}

} // namespace quenoria
