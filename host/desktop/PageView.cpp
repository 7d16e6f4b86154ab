#include "desktop/PageView.h"

#include "desktop/HostCommands.h"
#include "desktop/UserActions.h"

#include <vantix/host/Host.h>
#include <vantix/host/Render.h>
#include <vantix/host/Scene.h>

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <functional>
#include <stdexcept>

namespace vantix::host::desktop
{

namespace
{

// A drag across the whole height turns the view by half a turn: fine enough to aim, quick to go round.
constexpr double DegreesPerPixel = 0.4;
// One notch of the wheel zooms by a tenth.
constexpr double ZoomPerNotch = 1.1;
const QColor Desk(96, 96, 104);
const QColor ActiveMark(40, 110, 230);

// The mouse on a frame whose view does not turn (a 2D plot) does nothing: there is nothing to tell.
void OnView(const std::function<void()>& change)
{
    RunUserAction(
        [&]
        {
            try
            {
                change();
            }
            catch (const std::runtime_error&)
            {
            }
        });
}

} // namespace

PageView::PageView(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(160, 120);
    setFocusPolicy(Qt::ClickFocus);
}

QRect PageView::paperRect() const
{
    const std::array<double, 2> paper = paperSize();
    const double scale = std::min(width() / paper[0], height() / paper[1]);
    const int w = std::max(1, static_cast<int>(paper[0] * scale));
    const int h = std::max(1, static_cast<int>(paper[1] * scale));
    return QRect((width() - w) / 2, (height() - h) / 2, w, h);
}

QRect PageView::activeFrameRect() const
{
    const UniqueID_t active = activeFrame();
    if (active == 0)
        return {};
    const QRect paper = paperRect();
    const double scale = paper.width() / paperSize()[0];
    const FramePlacement place = framePlacement(active);
    return QRect(paper.x() + static_cast<int>(std::lround(place.x * scale)),
                 paper.y() + static_cast<int>(std::lround(place.y * scale)),
                 static_cast<int>(std::lround(place.width * scale)),
                 static_cast<int>(std::lround(place.height * scale)));
}

void PageView::pageChanged()
{
    m_stale = true;
    update();
}

void PageView::showRedraw()
{
    m_stale = true;
    repaint();
}

void PageView::drawPage()
{
    m_stale = false;
    const QRect paper = paperRect();
    try
    {
        m_image = renderRegion(ExportRegion_WorkArea, paper.width(), paper.height());
    }
    catch (const std::exception&)
    {
        m_image = {}; // no OpenGL: the desk alone, and the reason is told where the export is tried
    }
    m_picture = m_image.empty() ? QImage()
                                : QImage(m_image.rgb.data(), m_image.width, m_image.height, m_image.width * 3,
                                         QImage::Format_RGB888);
    ++m_picturesDrawn;
}

void PageView::paintEvent(QPaintEvent*)
{
    const bool drawn = m_stale || m_picture.size() != paperRect().size();
    if (drawn)
        drawPage();
    QPainter painter(this);
    const QRect paper = paperRect();
    painter.fillRect(rect(), Desk);
    if (!m_picture.isNull())
        painter.drawImage(paper.topLeft(), m_picture);
    const QRect active = activeFrameRect();
    if (!active.isEmpty())
    {
        painter.setPen(QPen(ActiveMark, 2));
        painter.drawRect(active.adjusted(1, 1, -1, -1));
    }
    painter.end();
    if (drawn && m_pictureShown)
        m_pictureShown();
}

void PageView::resizeEvent(QResizeEvent*)
{
    m_stale = true;
}

void PageView::activateFrameAt(const QPoint& point)
{
    const QRect paper = paperRect();
    const double scale = paper.width() / paperSize()[0];
    const std::vector<UniqueID_t> stack = frameStack();
    for (auto frame = stack.rbegin(); frame != stack.rend(); ++frame) // the top frame first
    {
        const FramePlacement place = framePlacement(*frame);
        const QRectF box(paper.x() + place.x * scale, paper.y() + place.y * scale, place.width * scale,
                         place.height * scale);
        if (box.contains(point))
        {
            if (*frame != activeFrame())
                RunUserAction([id = *frame] { activateFrame(id); });
            return;
        }
    }
}

void PageView::mousePressEvent(QMouseEvent* event)
{
    activateFrameAt(event->position().toPoint());
    m_dragFrom = event->position().toPoint();
    m_dragging = hasDataSet();
    m_panning = event->button() == Qt::MiddleButton || (event->modifiers() & Qt::ShiftModifier);
}

void PageView::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_dragging || !(event->buttons() & (Qt::LeftButton | Qt::MiddleButton)))
        return;
    const QPoint to = event->position().toPoint();
    const QPoint moved = to - m_dragFrom;
    m_dragFrom = to;
    if (moved.isNull())
        return;
    if (m_panning)
    {
        const QRect frame = activeFrameRect();
        const double unitsPerPixel = view().width / std::max(1, frame.width());
        OnView([&] { PanView(moved.x() * unitsPerPixel, -moved.y() * unitsPerPixel); });
    }
    else
        OnView([&] { TurnView(moved.y() * DegreesPerPixel, moved.x() * DegreesPerPixel); });
    pageChanged();
}

void PageView::mouseReleaseEvent(QMouseEvent*)
{
    m_dragging = false;
}

void PageView::wheelEvent(QWheelEvent* event)
{
    const double notches = event->angleDelta().y() / 120.0;
    if (notches == 0.0 || !hasDataSet())
        return;
    OnView([&] { SetViewWidth(view().width * std::pow(ZoomPerNotch, -notches)); });
    pageChanged();
}

} // namespace vantix::host::desktop
