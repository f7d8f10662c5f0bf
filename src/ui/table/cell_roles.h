#pragma once

#include "model/channel.h"

#include <QList>
#include <QMetaType>
#include <QString>

#include <Qt>

namespace quenoria {

/// How a cell is shown and edited.
enum class CellKind {
    text,
    check,   ///< a check box
    picker,  ///< one of several choices
    date,    ///< a date and time field
    field,   ///< one line of free text
    buttons, ///< buttons, after a text if there is one
};

/// What a button of a row does to the row's contact.
struct RowAction {
    enum class Kind { sendMessage, chooseAttachment, removeAttachment, showHistory };
    using enum Kind;
    Kind kind = sendMessage;
    Channel channel = {}; ///< of a message

    constexpr RowAction() = default;
    constexpr RowAction(Kind which, Channel on = {}) : kind(which), channel(on) {}
    static constexpr RowAction send(Channel channel) { return {sendMessage, channel}; }
    bool operator==(const RowAction &) const = default;
};

/// A button inside a cell. Without a caption it shows its symbol alone.
struct CellButton {
    RowAction action;
    QString name;    ///< what it does: tooltip, menu entry, accessible text
    QString caption; ///< painted text
    QString symbol;  ///< drawing, possibly none
    bool enabled = true;
};
using CellButtons = QList<CellButton>;

/// One entry of a picker.
struct CellChoice {
    QString id;
    QString title;
};
using CellChoices = QList<CellChoice>;

/// The state of a contact that stands before its name.
enum class ContactMark { none, sent, stopped };

/// What the model offers beside Qt's own roles. Qt::CheckStateRole, Qt::EditRole and
/// Qt::ToolTipRole mean what they always do.
enum CellRole {
    KindRole = Qt::UserRole, ///< CellKind
    ButtonsRole,             ///< CellButtons
    ChoicesRole,             ///< CellChoices; Qt::EditRole holds the id of the current one
    MarkRole,                ///< ContactMark
    WarningRole,             ///< second line in the colour of a failure
    PlaceholderRole,         ///< shown while the text is empty
    ArrivedRole,             ///< whether the contact came a moment ago
    SortDirectionRole,       ///< of a header: Qt::SortOrder of the current column, else invalid
};

} // namespace quenoria

Q_DECLARE_METATYPE(quenoria::CellButtons)
Q_DECLARE_METATYPE(quenoria::CellChoices)
