// One host option menu showing a fixed list of values: fills the menu and converts between the values and
// the menu's positions, which the host counts from 1.
#pragma once

#include "model/ListModelPreMapped.h"

#include <VtxGUI.h>

#include <stdexcept>
#include <string>

namespace vantix::vtxutiltools
{

template <typename T>
class OptionMenuStaticManager
{
public:
    OptionMenuStaticManager(const PreMappedValue<T>* values, unsigned long count) : m_model(values, count) {}
    virtual ~OptionMenuStaticManager() = default;

    OptionMenuStaticManager(const OptionMenuStaticManager&) = delete;
    OptionMenuStaticManager& operator=(const OptionMenuStaticManager&) = delete;

    // Replaces whatever the menu holds with the model's texts: position p shows entry p - 1. Takes no lock;
    // the owning dialog holds it where it needs it. Does nothing before the menu is built.
    void fillOptionMenu() const
    {
        if (m_optionMenuId == NoMenu)
            return;
        VtxGUIOptionMenuDeleteAllItems(m_optionMenuId);
        for (unsigned long index = 0; index < m_model.size(); ++index)
            VtxGUIOptionMenuAppendItem(m_optionMenuId, m_model.displayString(index).c_str());
    }

    // Binds the menu (made when its dialog is built) and fills it. Filling brings a menu back to its first
    // entry, so a menu bound before shows again the entry it showed.
    void bind(int optionMenuId)
    {
        const bool showedEntry = m_optionMenuId == optionMenuId && VtxGUIOptionMenuGet(optionMenuId) >= 1;
        const T shown = showedEntry ? chosenValue() : T();
        m_optionMenuId = optionMenuId;
        fillOptionMenu();
        if (showedEntry)
            showValue(shown);
    }

    std::string getDisplayString(const T& value) const
    {
        const unsigned long index = m_model.indexForData(value);
        if (index == m_model.end())
            throw std::out_of_range("Error in OptionMenuStaticManager::getDisplayString:\n"
                                    "The requested item does not exist in the model.");
        return m_model.displayString(index);
    }

    // The value of the entry the menu shows. Throws std::out_of_range when the menu is not built or shows
    // no entry of the model.
    T chosenValue() const
    {
        if (m_optionMenuId == NoMenu)
            throw std::out_of_range("The option menu is not built.");
        const int position = VtxGUIOptionMenuGet(m_optionMenuId);
        if (position < 1)
            throw std::out_of_range("The option menu shows no entry.");
        return m_model.data(static_cast<unsigned long>(position) - 1);
    }

    // Makes the menu show value; a value the model does not have, or a menu not built yet, is left as it is.
    void showValue(const T& value) const
    {
        const unsigned long index = m_model.indexForData(value);
        if (m_optionMenuId != NoMenu && index != m_model.end())
            VtxGUIOptionMenuSet(m_optionMenuId, static_cast<int>(index + 1));
    }

    static constexpr int NoMenu = -2;

    // Read and written by the owning dialog: the menu's identifier is known only once the dialog is built.
    ListModelPreMapped<T> m_model;
    int m_optionMenuId = NoMenu;
};

} // namespace vantix::vtxutiltools
