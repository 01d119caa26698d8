#include "core/Shortcut.h"

#include "platform/Platform.h"

namespace vistrel {

ModifierMask maskForToggleIndex(std::int64_t index) {
    switch (index) {
    case 1:
        return controlMask;
    case 2:
        return optionMask;
    default:
        return commandMask;
    }
}

Shortcut resolve(const UserShortcut& shortcut, const UserDefaults& defaults) {
    if (!defaults.boolForKey("ownShortCuts"))
        return {.key = std::string(returnKey), .mask = shortcut.defaultMask};

    Shortcut own;
    if (const auto stored = defaults.objectForKey(shortcut.keyTextKey))
        if (const auto* text = std::get_if<std::string>(&*stored))
            own.key = *text;
    own.mask = maskForToggleIndex(defaults.integerForKey(shortcut.toggleIndexKey));
    return own;
}

} // namespace vistrel
