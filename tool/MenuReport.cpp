#include "tool/MenuReport.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vistrel::tool {

namespace {

struct Leaf {
    std::string path;
    const MenuRow* row;
};

void collect(const std::vector<MenuRow>& menu, const std::string& above,
             std::vector<Leaf>& leaves) {
    for (const auto& row : menu) {
        const auto path = above.empty() ? row.title : above + " > " + row.title;
        if (row.items.empty() && !row.shortcut.key.empty())
            leaves.push_back({path, &row});
        collect(row.items, path, leaves);
    }
}

/// Return and Enter send what a line feed, a carriage return or an end of text stand for.
bool isReturn(const std::string& key) {
    return key == "\n" || key == "\r" || key == "\x03";
}

/// With a character that is printed, the Shift key has done its work by choosing the character.
ModifierMask decidingMask(const Shortcut& shortcut) {
    const auto all = commandMask | optionMask | controlMask;
    const auto first = static_cast<unsigned char>(shortcut.key.front());
    return shortcut.mask & (first < 0x20 ? all | shiftMask : all);
}

bool isSame(const Shortcut& a, const Shortcut& b) {
    return (a.key == b.key || (isReturn(a.key) && isReturn(b.key))) &&
           decidingMask(a) == decidingMask(b);
}

bool hasOurs(const MenuRow& row) {
    return row.isOurs || std::ranges::any_of(row.items, hasOurs);
}

} // namespace

std::vector<Collision> collisions(const std::vector<MenuRow>& mainMenu) {
    std::vector<Leaf> leaves;
    collect(mainMenu, "", leaves);
    std::vector<Collision> found;
    for (auto ours = leaves.begin(); ours != leaves.end(); ++ours) {
        for (auto theirs = leaves.begin(); theirs != leaves.end(); ++theirs) {
            if (ours->row->isOurs && !theirs->row->isOurs &&
                isSame(ours->row->shortcut, theirs->row->shortcut)) {
                found.push_back({.ours = ours->path,
                                 .theirs = theirs->path,
                                 .keys = shortcutText(ours->row->shortcut),
                                 .theirsWins = theirs < ours});
            }
        }
    }
    return found;
}

std::string shortcutText(const Shortcut& shortcut) {
    if (shortcut.key.empty())
        return {};
    std::string text;
    for (const auto& [mask, name] :
         std::array<std::pair<ModifierMask, const char*>, 4>{{{controlMask, "Control-"},
                                                              {optionMask, "Option-"},
                                                              {shiftMask, "Shift-"},
                                                              {commandMask, "Command-"}}})
        if ((shortcut.mask & mask) != 0)
            text += name;
    if (isReturn(shortcut.key))
        return text + "Return";
    if (shortcut.key == " ")
        return text + "Space";
    const char key = shortcut.key.front();
    if (shortcut.key.size() == 1 && key >= 'a' && key <= 'z')
        return text + static_cast<char>(key - 'a' + 'A');
    const bool needsShift = shortcut.key.size() == 1 && key >= 'A' && key <= 'Z';
    return text + (needsShift && (shortcut.mask & shiftMask) == 0 ? "Shift-" : "") + shortcut.key;
}

std::vector<std::size_t> ourPositions(const std::vector<MenuRow>& menu) {
    std::vector<std::size_t> positions;
    for (std::size_t index = 0; index < menu.size(); ++index)
        if (hasOurs(menu[index]))
            positions.push_back(index);
    return positions;
}

} // namespace vistrel::tool
