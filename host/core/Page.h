// The page: its frames in stacking order with the active one, the paper they sit on, the screen's pixels
// per paper inch, and the lightweight walk over the frames.
#pragma once

#include "core/View3D.h"

#include <VtxUtil.h>

#include <array>
#include <memory>
#include <vector>

namespace vantix::host::detail
{

struct DataSet; // host/scene

struct Frame
{
    UniqueID_t id = 0;
    PlotType_e plotType = PlotType_Cartesian3D;
    View3D view;
    double solutionTime = 0.0;
    std::shared_ptr<DataSet> dataSet; // null: no data set
    // Position from the page's top left corner and size, in paper inches.
    double x = 0.25;
    double y = 0.25;
    double width = 10.5;
    double height = 8.0;
};

// Every change of the frames that add-ons hear of raises its state change here: a new frame, the active
// frame changing (also to none), a frame deleted, a new plot type. The lightweight walk raises nothing.
class Page
{
public:
    // Bottom of the stack first.
    const std::vector<std::unique_ptr<Frame>>& frames() const { return m_frames; }
    Frame* activeFrame() const { return m_active; }
    // The active frame when it is a 3D plot, else null.
    Frame* active3DFrame() const
    {
        return m_active && m_active->plotType == PlotType_Cartesian3D ? m_active : nullptr;
    }
    // The active frame, for the host's own API: throws std::logic_error when the page has none.
    Frame& requireActiveFrame() const;
    // Null when the page has no such frame.
    Frame* frame(UniqueID_t id) const;

    // A new frame on top of the stack, made active. Its unique id was never given out before in this
    // process, whatever resets came between.
    Frame& addFrame(PlotType_e plotType);
    bool activate(UniqueID_t id);
    bool activateTop();
    // Sends the top frame to the bottom and activates the new top one.
    bool pushTop();
    // Takes a frame off the page; the top frame becomes active when it was the active one. False for an
    // unknown frame.
    bool deleteFrame(UniqueID_t id);
    // Of the active frame; throws std::logic_error when the page has none.
    void setPlotType(PlotType_e plotType);

    // The lightweight walk visits the frames from the top of the stack down, making each current without
    // changing the stacking order; the last stays current until the walk ends, and the end makes the frame
    // active at the start active again. A step or end without a start, or a second start, is reported.
    bool walkStart();
    bool walkNext();
    void walkEnd();
    bool walking() const { return m_walkPosition >= 0; }

    double paperWidth() const { return m_paperWidth; }
    double paperHeight() const { return m_paperHeight; }
    void setPaperSize(double width, double height);
    double pixelsPerInch() const { return m_pixelsPerInch; }
    void setPixelsPerInch(double pixelsPerInch) { m_pixelsPerInch = pixelsPerInch; }
    // The paper in screen pixels, rounded.
    std::array<int, 2> workAreaPixels() const;
    // A length from one unit to another (3 paper inches, 4 screen pixels, the same factor for X and Y); an
    // unknown unit code is reported, naming the function asked, and the value comes back unchanged.
    double convert(const char* function, int fromUnits, int toUnits, double value) const;

private:
    // Makes a frame (or none) active, telling the listeners when that changes the active frame.
    void makeActive(Frame* frame);
    Frame* frameFromTop(int position) const;

    std::vector<std::unique_ptr<Frame>> m_frames;
    Frame* m_active = nullptr;
    // The page: paper size in inches, and the screen's pixels per paper inch.
    double m_paperWidth = 11.0;
    double m_paperHeight = 8.5;
    double m_pixelsPerInch = 100.0;
    // The lightweight walk: the position from the top of the stack, -1 when no walk is open.
    int m_walkPosition = -1;
    Frame* m_walkReturnsTo = nullptr;
};

} // namespace vantix::host::detail
