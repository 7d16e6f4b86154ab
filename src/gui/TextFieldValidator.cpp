#include "gui/TextFieldValidator.h"

#include <VtxGUI.h>
#include <VtxUtil.h>

#include <algorithm>
#include <limits>
#include <locale>
#include <sstream>

namespace vantix::vtxutiltools
{

namespace
{

// The classic locale reads and writes numbers the same way whatever the process's global locale is: a
// decimal point, no thousands separators, six significant digits.
template <typename T>
std::string NumberText(T value)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << value;
    return text.str();
}

template <typename T>
bool ReadNumber(const std::string& text, T& value)
{
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    return static_cast<bool>(stream >> value);
}

} // namespace

template <typename T>
TextFieldValidator<T>::TextFieldValidator(T value)
    : m_textFieldId(GuiId_None), m_value(value), m_hasMinimum(false), m_hasMaximum(false),
      m_minimum(std::numeric_limits<T>::lowest()), m_maximum(std::numeric_limits<T>::max())
{
    updateTextField();
}

template <typename T>
TextFieldValidator<T>::TextFieldValidator(T value, T minimum, T maximum)
    : m_textFieldId(GuiId_None), m_value(value), m_hasMinimum(true), m_hasMaximum(true), m_minimum(minimum),
      m_maximum(maximum)
{
    updateTextField();
}

template <typename T>
void TextFieldValidator<T>::setMinimum(T minimum)
{
    m_minimum = minimum;
    m_hasMinimum = true;
    if (m_value < m_minimum)
        m_value = m_minimum;
    updateTextField();
}

template <typename T>
void TextFieldValidator<T>::setMaximum(T maximum)
{
    m_maximum = maximum;
    m_hasMaximum = true;
    if (m_value > m_maximum)
        m_value = m_maximum;
    updateTextField();
}

template <typename T>
bool TextFieldValidator<T>::validate(const std::string& text)
{
    T value{};
    const bool accepted = ReadNumber(text, value) && m_minimum <= value && value <= m_maximum;
    if (accepted)
        m_value = value;
    else
        VtxUtilDialogErrMsg(refusalMessage().c_str());
    updateTextField();
    return accepted;
}

template <typename T>
void TextFieldValidator<T>::updateTextField()
{
    if (m_textFieldId == GuiId_None)
        return;
    VtxGUITextFieldSetString(m_textFieldId, NumberText(m_value).c_str());
}

template <typename T>
void TextFieldValidator<T>::bindTextField(int textFieldId)
{
    m_textFieldId = textFieldId;
    updateTextField();
}

template <typename T>
void TextFieldValidator<T>::showWithinBounds(T value)
{
    m_value = std::clamp(value, m_minimum, m_maximum);
    updateTextField();
}

template <typename T>
std::string TextFieldValidator<T>::refusalMessage() const
{
    std::string message = "Invalid input. Input must be a number";
    if (m_hasMinimum && m_hasMaximum)
        message += " between " + NumberText(m_minimum) + " and " + NumberText(m_maximum);
    else if (m_hasMinimum)
        message += " greater than or equal to " + NumberText(m_minimum);
    else if (m_hasMaximum)
        message += " less than or equal to " + NumberText(m_maximum);
    return message + ".";
}

template class TextFieldValidator<int>;
template class TextFieldValidator<double>;

} // namespace vantix::vtxutiltools
