#include "gui/DialogMain.h"

#include "core/KeyFrame.h"
#include "document/KeyFrameFile.h"
#include "gui/CallbackShield.h"
#include "gui/ControlSensitivity.h"
#include "gui/DialogLayouts.h"
#include "platform/HostGuards.h"

#include <VtxGUI.h>
#include <VtxUtil.h>
#include <vantix/toolbox/StyleValue.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <limits>

using namespace vantix::vtxutiltools;

namespace
{

const int MaximumFrameCount = std::numeric_limits<int>::max();
// The frame count a new dialog offers, and the one a key frame captured into an empty list gets.
const int DefaultFrameCount = 30;

void SetToggle(int toggle, bool on)
{
    VtxGUIMenuSetToggle(toggle, on ? TRUE : FALSE);
}

// Sets a flag for the length of a scope.
class FlagHolder
{
public:
    explicit FlagHolder(bool& flag) : m_flag(flag) { m_flag = true; }
    ~FlagHolder() { m_flag = false; }
    FlagHolder(const FlagHolder&) = delete;
    FlagHolder& operator=(const FlagHolder&) = delete;

private:
    bool& m_flag;
};

} // namespace

const PreMappedValue<Destination_e> DialogMain::m_destinationOptions[2] = {{"On Screen", OnScreen},
                                                                           {"To File", ToFile}};
const char* const DialogMain::m_destination_OPT_List = " ";

int DialogMain::m_animateTimeMenuID = GuiId_None;
int DialogMain::m_animateStreamsMenuID = GuiId_None;
int DialogMain::m_fadeInMenuID = GuiId_None;
int DialogMain::m_fadeOutMenuID = GuiId_None;

DialogMain& DialogMain::instance()
{
    static DialogMain dialogInstance;
    return dialogInstance;
}

DialogMain::DialogMain()
    : m_keyFrameListView(ListViewInterface::MultiSelection), m_frameCountValidator(DefaultFrameCount),
      m_currentFile("animation", KeyFrameFile::m_fileNameExtension, "Key Frame Animation"),
      m_dialogDropper(*this), m_destinationMenu(m_destinationOptions, std::size(m_destinationOptions))
{
    m_frameCountValidator.setMinimum(1);
    m_frameCountValidator.setMaximum(MaximumFrameCount);
    m_keyFrameListView.setModel(m_keyFrameModel);

    // Movies made with the add-on run at 30 frames per second unless the export options say otherwise.
    HostLock lock;
    vantix::toolbox::StyleValue exportSetup("ExportSetup");
    exportSetup.setValue(30.0, nullptr, -1, -1,
                         exportSetup.initMacroIDsfromStyleValueNames("AnimationSpeed"));
}

DialogMain::~DialogMain() = default;

void DialogMain::launch()
{
    RunShielded("DialogMain::launch",
                []
                {
                    HostLock lock;
                    BuildDialog1(GuiId_MainWindow);
                    buildMenuBar();
                    VtxGUIDialogLaunch(Dialog1Manager);
                });
}

bool DialogMain::okToLaunch()
{
    HostLock lock;
    return VtxUtilFrameGetCount() >= 1 && VtxUtilFrameGetPlotType() == PlotType_Cartesian3D;
}

bool DialogMain::isVisible()
{
    return Dialog1Manager != GuiId_None && VtxGUIDialogIsUp(Dialog1Manager);
}

void DialogMain::init_CB()
{
    RunShielded("DialogMain::init_CB",
                []
                {
                    DialogMain& dialog = instance();
                    dialog.m_destinationMenu.bind(Destination_OPT_D1);
                    dialog.m_frameCountValidator.bindTextField(FrameCount_TF_D1);
                    dialog.m_keyFrameListView.setGuiID(KeyFrameList_MLST_D1);
                    dialog.m_keyFrameListView.selectionModel()->addObserver(dialog);
                    dialog.m_keyFrameListView.resumeUpdates();
                    dialog.updateMenuToggles();
                    dialog.update();
                    HostLock lock;
                    dialog.m_dialogDropper.listener().startListening();
                });
}

void DialogMain::drop()
{
    RunShielded("DialogMain::drop",
                []
                {
                    DialogMain& dialog = instance();
                    HostLock lock;
                    if (Dialog1Manager != GuiId_None)
                        VtxGUIDialogDrop(Dialog1Manager);
                    dialog.m_keyFrameListView.selectionModel()->removeObserver(dialog);
                    dialog.m_keyFrameListView.suspendUpdates();
                });
}

void DialogMain::help_BTN_CB()
{
    RunShielded("DialogMain::help_BTN_CB",
                []
                {
                    HostLock lock;
                    VtxUtilHelp("key_frame_animation.html", FALSE, 0);
                });
}

void DialogMain::buildMenuBar()
{
    static bool menuIsBuilt = false;
    if (menuIsBuilt || Dialog1Manager == GuiId_None)
        return;
    menuIsBuilt = true;

    const int menuBar = VtxGUIMenuBarAdd(Dialog1Manager);

    const int file = VtxGUIMenuAdd(menuBar, "&File");
    VtxGUIMenuAddItem(file, "&Open Animation File...", "Open a saved key frame animation file.", open_CB);
    VtxGUIMenuAddSeparator(file);
    VtxGUIMenuAddItem(file, "&Save Animation File", "Save the key frame animation state to a file.", save_CB);
    VtxGUIMenuAddItem(file, "Save Animation File &As...", "Save the key frame animation state to a file.",
                      saveAs_CB);

    const int options = VtxGUIMenuAdd(menuBar, "&Options");
    m_animateTimeMenuID = VtxGUIMenuAddToggle(
        options, "Animate &Time Concurrently",
        "Enable this option to animate time during the key frame animation.", animateTime_CB);
    VtxGUIMenuAddItem(options, "Time &Animation Options...", nullptr, timeAnimationOptions_CB);
    VtxGUIMenuAddSeparator(options);
    m_animateStreamsMenuID = VtxGUIMenuAddToggle(
        options, "Animate &Streamtraces Concurrently",
        "Enable this option to animate streamtrace markers during the key frame animation.",
        animateStreams_CB);
    VtxGUIMenuAddSeparator(options);
    m_fadeInMenuID = VtxGUIMenuAddToggle(options, "Fade &In", nullptr, fadeIn_CB);
    m_fadeOutMenuID = VtxGUIMenuAddToggle(options, "Fade &Out", nullptr, fadeOut_CB);
}

void DialogMain::registerOnIdleUpdate()
{
    if (!isVisible())
        return;
    m_onIdleManager.addCallback([this] { RunShielded("DialogMain::update", [this] { update(); }); });
}

void DialogMain::update()
{
    if (Dialog1Manager == GuiId_None)
        return;
    std::vector<unsigned long> selected;
    m_keyFrameListView.selectionModel()->getSelectedItems(selected);
    updateSelectedKeyFrameInfo(selected);

    const std::size_t keyFrames = m_keyFrameModel.size();
    const std::size_t selections = selected.size();
    const bool editing = keyFrames > 0 && selections > 0;
    SetSensitivity({Apply_BTN_D1, Update_BTN_D1, ViewName_TF_D1, ViewName_LBL_D1},
                   editing && selections == 1);
    SetSensitivity({Delete_BTN_D1, InsertKeyFrame_BTN_D1, FrameCount_LBL_D1, FrameCount_TF_D1}, editing);
    SetSensitivity({AnimateSelected_BTN_D1}, editing && selections >= 2);
    SetSensitivity({Clear_BTN_D1}, keyFrames > 0);
    SetSensitivity({AnimateAll_BTN_D1}, keyFrames >= 2);

    m_destinationMenu.showValue(m_settings.destination);
}

void DialogMain::updateSelectedKeyFrameInfo(const std::vector<unsigned long>& selected)
{
    if (selected.empty())
        return;
    VtxGUITextFieldSetString(ViewName_TF_D1, m_keyFrameModel.name(selected.front()).c_str());
    if (selected.size() >= 2)
    {
        std::vector<std::size_t> frameCounts;
        ExtractFrameCountsForIndices(m_keyFrameModel.dataList(), selected, frameCounts);
        const bool allEqual = std::adjacent_find(frameCounts.begin(), frameCounts.end(),
                                                 std::not_equal_to<>()) == frameCounts.end();
        if (!allEqual)
        {
            // The selected key frames differ: the field shows no count rather than one of them.
            VtxGUITextFieldSetString(FrameCount_TF_D1, "");
            return;
        }
    }
    // A count beyond what the field holds is shown as the largest it can.
    const unsigned long frameCount = m_keyFrameModel.frameCount(selected.front());
    m_frameCountValidator.showWithinBounds(
        static_cast<int>(std::min<unsigned long>(frameCount, static_cast<unsigned long>(MaximumFrameCount))));
}

void DialogMain::updateMenuToggles()
{
    // Setting a toggle could come back here through the host; one pass is enough.
    static bool alreadyUpdatingMenuToggles = false;
    if (alreadyUpdatingMenuToggles)
        return;
    const FlagHolder updating(alreadyUpdatingMenuToggles);
    if (!isVisible())
        return;
    buildMenuBar();
    SetToggle(m_animateStreamsMenuID, m_settings.animateStreamtraces);
    SetToggle(m_animateTimeMenuID, m_settings.timeOptions.animateTime);
    SetToggle(m_fadeInMenuID, m_settings.fadeIn);
    SetToggle(m_fadeOutMenuID, m_settings.fadeOut);
}

void DialogMain::selectionChanged(const std::vector<unsigned long>& /*selected*/)
{
    registerOnIdleUpdate();
}

void DialogMain::applySettings(const Settings_s& settings)
{
    m_settings = settings;
    updateMenuToggles();
}

void DialogMain::applyDataModel(const ListModelKeyFrame& model)
{
    m_keyFrameModel.setDataList(model.dataList());
    registerOnIdleUpdate();
    updateMenuToggles();
}

void DialogMain::onSettingsFileRead(const std::string& fileName)
{
    m_currentFile.setFileName(fileName);
    registerOnIdleUpdate();
    updateMenuToggles();
}

void DialogMain::onTimeAnimationDialogDropped(bool ok)
{
    if (ok)
        updateMenuToggles();
}
