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
    kSeparator,   // a line between the entries around it
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

// The bar from left to right. The last top entry, which names the maker's site, is not in it: its
// caption belongs to the deployment.
std::span<const TopEntry> MenuBarEntries();

}  // namespace ssq
