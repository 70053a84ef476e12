#include "desktop/system/Application.h"

#include <QPalette>
#include <algorithm>
#include <cmath>
#include <exception>
#include <new>

namespace linealis::desktop {

namespace {

constexpr double readableContrast = 4.5;  // the minimum for normal text, level AA, in the guidelines of Contrast

/// Returns the relative luminance of an sRGB color, from 0 to 1, as the guidelines of Contrast define it.
double Luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// Returns the background color, made darker or lighter in small steps until the text is readable on it.
QColor ReadableGround(QColor ground, const QColor& text)
{
    constexpr int steps = 100;
    const bool darken = Luminance(text) > 0.18;  // about equal contrast to black and to white
    for (int i = 0; i < steps && Contrast(ground, text) < readableContrast; ++i) {
        const int lightness = ground.lightness() + (darken ? -3 : 3);
        ground.setHsl(ground.hslHue(), ground.hslSaturation(), std::clamp(lightness, 0, 255));
    }
    return ground;
}

}  // namespace

double Contrast(const QColor& one, const QColor& other)
{
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

Application::Application(int& theArgc, char** argv) : QApplication(theArgc, argv)
{
    const QPalette theme = palette();
    QPalette readable;  // sets only what it changes; the rest still follows the theme
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        readable.setColor(
            group, QPalette::Highlight,
            ReadableGround(theme.color(group, QPalette::Highlight), theme.color(group, QPalette::HighlightedText)));
    }
    setPalette(readable);
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    Message error;
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::bad_alloc&) {
        error = Message("there is not enough memory");
    } catch (const std::exception& exception) {
        error = Message::Verbatim(exception.what());
    }
    if (onError) {
        onError(Message("That failed: %1. Nothing has changed.", error));
    }
    return true;
}

}  // namespace linealis::desktop
