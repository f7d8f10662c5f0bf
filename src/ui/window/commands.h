#pragma once

#include "ui/channels/channel_descriptor.h"
#include "ui/window/header_texts.h"

#include <span>

namespace quenoria {

class ContentView;

/// The menus of the menu bar, in its order.
enum class MenuPlace { file, edit, view, send, window, help };

/// Where a command has a button of its own.
enum class ButtonPlace { none, commands, queues, deletion, badge };

/// One command of the window: the menu bar, the header and the shortcuts read it.
struct Command {
    const char16_t *text;
    const char16_t *symbol;   ///< drawing, possibly empty
    const char16_t *shortcut; ///< in the toolkit's portable form, possibly empty
    MenuPlace menu;
    ButtonPlace button;
    void (ContentView::*run)();
    QString HeaderTexts::*countedText = nullptr; ///< takes the place of the text
    bool startsGroup = false;                    ///< in its menu
    int firstStep = 0; ///< its place among what a window without contacts offers, counted from 1
    bool HeaderTexts::*isPossible = nullptr; ///< none: it always is

    // Of a command that stands once for each channel, with a text of its own there; it runs on it.
    CommandText ChannelCommands::*ofChannel = nullptr;
    void (ContentView::*runOn)(Channel) = nullptr;
    bool countsSelection = false; ///< its counted text is the queue's
    Channel channel = {};

    void runIn(ContentView &window) const;
};

[[nodiscard]] std::span<const Command> windowCommands();

struct MenuTitle {
    MenuPlace place;
    const char16_t *title;
};

/// The menus, from left to right.
[[nodiscard]] std::span<const MenuTitle> windowMenus();

} // namespace quenoria
