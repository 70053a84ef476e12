#pragma once

#include <QIcon>

namespace linealis::desktop {

/// The pictures on the buttons of the program.
enum class ToolIcon {
    Gallery,
    Presets,
    Undo,
    Redo,
    Reset,
    Fit,
    Margins,
    Rulers,
    Link,
    FromAbove,
    Today,
    Center,
    Warning
};

/// Returns an icon that is drawn as lines in the color of the button's text, so that it fits light and dark
/// palettes and every resolution. It follows later changes of the palette.
QIcon MakeToolIcon(ToolIcon icon);

}  // namespace linealis::desktop
