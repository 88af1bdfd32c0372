// The menu of the main window as data.
#pragma once

#include <span>

namespace ssq {

// What an entry does. Entries that act in the main window are its commands.
enum class MenuAction {
    kOpenPanel,   // opens the panel named by `argument`
    kOpenDialog,  // the same for a modal panel
    kSay,         // shows `argument` in a box
    kNothing,     // stands in the menu, does nothing
    kLearn,
    kUpdateDraws,
    kUpdatePrizes,
    kUpdateBallOrder,
    kOpenContact,
    kOpenSite,
    kOpenHelp,
    kUpdateProgram,
    kOpenProductPage,
};

struct MenuEntry {
    const char* control;
    const char* caption;
    MenuAction action = MenuAction::kNothing;
    const char* argument = "";
};

struct TopEntry {
    const char* control;
    const char* caption;
    std::span<const MenuEntry> entries;
};

// What an entry of a popup menu does with the grid it was raised over.
enum class PopupAction {
    kCopySelection,
    kCopyKillConditions,
    kHideNumbers,
    kShowNumbers,
};

struct PopupEntry {
    const char* control;
    const char* caption;
    PopupAction action;
};

// A popup menu that the main window raises over the grid vs1 of a panel.
struct PopupMenu {
    const char* control;
    const char* caption;
    const char* panel;
    std::span<const PopupEntry> entries;
};

std::span<const PopupMenu> PopupMenus();

// The bar from left to right. The last top entry, which names the maker's site, is not in it: its
// caption belongs to the deployment.
std::span<const TopEntry> MenuBarEntries();

}  // namespace ssq
