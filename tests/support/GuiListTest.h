// A dialog for list controls and key frames named by letters to show in them, the ground of the list view
// and selection model tests, with the host calls made from a mark on.
#pragma once

#include "document/ListModelKeyFrame.h"
#include "gui/ListView.h"

#include <support/AddOnTest.h>

#include <VtxGUI.h>

namespace testsupport
{

// One key frame per letter, named by it.
inline std::vector<vantix::vtxutiltools::KeyFrame_s> KeyFrames(const std::string& names)
{
    std::vector<vantix::vtxutiltools::KeyFrame_s> keyFrames;
    for (const char name : names)
        keyFrames.emplace_back(vantix::vtxutiltools::View(), std::string(1, name), 30, 0.0);
    return keyFrames;
}

class GuiListTest : public AddOnTest
{
protected:
    void SetUp() override
    {
        AddOnTest::SetUp();
        m_dialog = VtxGUIDialogCreateModeless(
            GuiId_MainWindow, 400, 300, "Lists", nullptr, [] {}, nullptr);
        m_list = AddList(true);
    }

    int AddList(
        bool multiSelection, GuiValueCallback_pf clicked = [](const int*) {}) const
    {
        return VtxGUIListAdd(m_dialog, 10, 10, 200, 200, multiSelection ? TRUE : FALSE, clicked);
    }

    static std::vector<int> SelectedPositions(int list) { return vantix::host::guiElement(list).selected; }
    static void Select(int list, std::vector<int> positions)
    {
        VtxGUIListSetSelectedItems(list, positions.data(), static_cast<int>(positions.size()));
    }

    void MarkTrace()
    {
        vantix::host::setTracing(true);
        m_traceMark = vantix::host::trace().size();
    }
    std::vector<std::string> TraceSinceMark() const
    {
        const std::vector<std::string> trace = vantix::host::trace();
        return std::vector<std::string>(trace.begin() + static_cast<long>(m_traceMark), trace.end());
    }
    // The calls since the mark that reached a dialog control, each marked when made without the host lock;
    // or those only.
    std::vector<std::string> ControlCallsSinceMark(bool unlockedOnly = false) const
    {
        std::vector<std::string> calls;
        int lockDepth = 0;
        for (const std::string& call : TraceSinceMark())
        {
            lockDepth += call == "VtxUtilLockStart" ? 1 : call == "VtxUtilLockFinish" ? -1 : 0;
            if (call.rfind("VtxGUI", 0) == 0 && (lockDepth <= 0 || !unlockedOnly))
                calls.push_back(lockDepth > 0 ? call : call + " unlocked");
        }
        return calls;
    }

    int m_dialog = GuiId_None;
    int m_list = GuiId_None; // multiple selection
    std::size_t m_traceMark = 0;
    vantix::vtxutiltools::ListModelKeyFrame m_keyFrames;
};

} // namespace testsupport
