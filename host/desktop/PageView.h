// The page as the person sees it: every frame drawn by the host's renderer at the window's size (the paper
// fitted into the widget), the active frame marked. The mouse works on the active 3D frame's view: a drag
// turns it (the viewer orbiting the rotation origin), the wheel zooms, a drag with Shift or the middle
// button pans; a click on another frame makes it active.
#pragma once

#include <vantix/host/Image.h>

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QWidget>

#include <functional>
#include <utility>

namespace vantix::host::desktop
{

class PageView : public QWidget
{
public:
    explicit PageView(QWidget* parent = nullptr);

    // The page changed: it is drawn again at the next paint.
    void pageChanged();
    // Draws the page now and paints it before returning, for the redraws of an animation: each frame is
    // on screen before the next one is computed.
    void showRedraw();

    // The picture last drawn, and how many were drawn (for tests and the benchmark).
    const QImage& picture() const { return m_picture; }
    long picturesDrawn() const { return m_picturesDrawn; }
    // Where the paper lies in the widget.
    QRect paperRect() const;
    // Told after each paint that showed a newly drawn picture (the benchmark times the first frame of an
    // animation with it); null for none.
    void setPictureShownObserver(std::function<void()> observer) { m_pictureShown = std::move(observer); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void drawPage();
    // The active frame's rectangle in the widget; empty without one.
    QRect activeFrameRect() const;
    void activateFrameAt(const QPoint& point);

    vantix::host::Image m_image; // the renderer's pixels, which m_picture shows without a copy
    QImage m_picture;
    bool m_stale = true;
    long m_picturesDrawn = 0;
    QPoint m_dragFrom;
    bool m_dragging = false;
    bool m_panning = false;
    std::function<void()> m_pictureShown;
};

} // namespace vantix::host::desktop
