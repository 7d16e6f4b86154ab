// The main dialog up, with an empty key frame list and new settings: the dialog outlives every test, so
// each starts from the same state.
#pragma once

#include "gui/DialogLayouts.h"
#include "gui/DialogMain.h"

#include <support/AddOnTest.h>

#include <vantix/host/Events.h>

#include <string>
#include <vector>

namespace testsupport
{

namespace kfa = vantix::vtxutiltools;

class DialogMainTest : public testsupport::AddOnTest
{
protected:
    void SetUp() override
    {
        AddOnTest::SetUp();
        dialog().applyDataModel(kfa::ListModelKeyFrame());
        dialog().applySettings(kfa::Settings_s());
        DialogMain::launch();
        vantix::host::runOnIdleUntilEmpty();
    }

    // The dialog follows the host's state until its dropper closes it: let it, so that no test leaves a
    // listener behind for the next one.
    void TearDown() override
    {
        vantix::host::setPlotType(PlotType_Cartesian2D);
        vantix::host::runOnIdleUntilEmpty();
        AddOnTest::TearDown();
    }

    static DialogMain& dialog() { return DialogMain::instance(); }

    // Key frames named "K0", "K1", ... with these frame counts, and the user's selection of them (the list
    // counts from 1).
    static void ShowKeyFrames(const std::vector<unsigned long>& frameCounts,
                              const std::vector<int>& positions)
    {
        kfa::ListModelKeyFrame& model = dialog().keyFrameModel();
        for (const unsigned long frameCount : frameCounts)
            model.insertItem(model.end(),
                             kfa::KeyFrame_s({}, "K" + std::to_string(model.size()), frameCount, 0.0));
        if (!frameCounts.empty()) // an empty list is greyed out
            vantix::host::selectListItems(KeyFrameList_MLST_D1, positions);
        vantix::host::runOnIdleUntilEmpty();
    }

    // For each group of controls 1 when all are usable, 0 when all are greyed out, ? when they differ.
    static std::string Sensitivities(const std::vector<std::vector<int>>& groups)
    {
        std::string flags;
        for (const std::vector<int>& group : groups)
        {
            std::size_t usable = 0;
            for (const int control : group)
                usable += vantix::host::guiElement(control).sensitive ? 1 : 0;
            flags += usable == 0 ? '0' : usable == group.size() ? '1' : '?';
        }
        return flags;
    }

    static int MenuEntry(const std::string& label)
    {
        return vantix::host::findControl(Dialog1Manager, label);
    }
};

} // namespace testsupport
