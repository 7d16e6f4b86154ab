#include "desktop/DialogUnits.h"

#include <vantix/host/Gui.h>

#include <QStringList>

#include <cmath>

namespace vantix::host::desktop
{

namespace
{

// Six dialog units to the pixel: the add-on's main dialog (4870 x 2620 units) opens at about 810 x 440
// pixels for its controls, and its buttons (145 units high) become 24 pixels, the height Qt's own push
// buttons and line edits take with the usual 9 to 10 point fonts, so that no label is clipped and the
// window still fits beside the main window on a laptop screen.
constexpr double UnitsPerPixel = 6.0;

} // namespace

int DialogPixels(int units)
{
    return static_cast<int>(std::lround(units / UnitsPerPixel));
}

QRect DialogRect(const GuiElement& control)
{
    return {DialogPixels(control.x), DialogPixels(control.y), DialogPixels(control.width),
            DialogPixels(control.height)};
}

QString MnemonicText(const std::string& label)
{
    QStringList lines = QString::fromStdString(label).split(QLatin1Char('\n'));
    for (QString& line : lines)
        line = line.trimmed();
    return lines.join(QLatin1Char('\n'));
}

QString PlainText(const std::string& label)
{
    const QString text = MnemonicText(label);
    QString plain;
    plain.reserve(text.size());
    for (qsizetype at = 0; at < text.size(); ++at)
    {
        if (text[at] == QLatin1Char('&') && at + 1 < text.size())
            ++at; // the mark goes; the character after it stays, a second '&' included
        plain += text[at];
    }
    return plain;
}

} // namespace vantix::host::desktop
