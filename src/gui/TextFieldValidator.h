#pragma once

#include <cstdint>
#include <string>

namespace vantix::vtxutiltools
{

// The accepted number of a dialog's text field, T int or double. Every text the user enters is checked
// against the number syntax and the bounds; a refused one is explained in an error dialog and leaves the
// value as it was. Either way the field is then made to show the accepted value, so it never keeps text
// that was not accepted.
//
// The owning dialog reads and writes the fields directly: it binds the field by setting m_textFieldId once
// its controls are built, and may set m_value (keeping it within the bounds itself) before calling
// updateTextField().
template <typename T>
class TextFieldValidator
{
public:
    // No bound in force: the bounds are the type's extremes, so every value passes.
    explicit TextFieldValidator(T value);
    // Both bounds in force, ends included.
    TextFieldValidator(T value, T minimum, T maximum);
    virtual ~TextFieldValidator() = default;

    // Each puts a bound in force and moves the value inside it when it lies beyond, so that the value
    // always lies within the bounds in force. Keeping the lower bound below the upper one is the caller's.
    void setMinimum(T minimum);
    void setMaximum(T maximum);

    // True when the text was accepted and is now the value; false when it was refused and the user was
    // told why. Only the number at the start of the text is read (for int, "12abc" is 12 and "3.7" is 3).
    bool validate(const std::string& text);
    // Shows the value in the bound field; does nothing while no field is bound.
    void updateTextField();
    // Binds the field (made when its dialog is built) and shows the value in it.
    void bindTextField(int textFieldId);
    // The value becomes value moved into the bounds, and the field shows it.
    void showWithinBounds(T value);

    std::int32_t m_textFieldId;
    T m_value;
    // Whether each bound is in force: they shape the refusal message. The range test always applies.
    bool m_hasMinimum;
    bool m_hasMaximum;
    T m_minimum;
    T m_maximum;

private:
    std::string refusalMessage() const;
};

} // namespace vantix::vtxutiltools
