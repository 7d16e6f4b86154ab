// The host's dialogs are laid out in dialog units; the desktop draws them in pixels, and shows their labels
// as Qt reads them.
#pragma once

#include <QRect>
#include <QString>

#include <string>

namespace vantix::host
{
struct GuiElement;
}

namespace vantix::host::desktop
{

// Pixels for a length or place in dialog units.
int DialogPixels(int units);
// The control's rectangle in pixels: its place, and its size (none for a label).
QRect DialogRect(const GuiElement& control);

// A label for a widget that underlines its mnemonic ('&'): blanks around each line left out, so that a
// button's lines are centred on their words.
QString MnemonicText(const std::string& label);
// A label for a widget that shows '&' as it stands: mnemonic marks gone ("&&" is a plain '&'), lines kept.
QString PlainText(const std::string& label);

} // namespace vantix::host::desktop
