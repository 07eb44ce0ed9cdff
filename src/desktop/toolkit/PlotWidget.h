#pragma once

#include "pictures/PaintedSurface.h"

#include <QFrame>
#include <QImage>

#include <functional>
#include <optional>
#include <vector>

namespace vastrel {

/// A plot surface on the screen. Its picture is kept, so that an expose needs no drawing; a change of size
/// starts a white one.
class PlotWidget : public QFrame, public PaintedSurface {
    Q_OBJECT

public:
    explicit PlotWidget(QWidget* parent = nullptr);

    /// Keeps the widget at this outer size in layout units; it need not be whole pixels.
    void FixSize(float width, float height);

    SurfaceSize Size() const override;
    void Erase() override;
    void Refresh() override;

    /// What stands on the surface.
    QImage Picture();

    /// Paints what stands on the white surface once more, stroke by stroke: on paper it stays sharp.
    void Repeat(QPainter& painter) const;

    /// Where the surface begins, inside the widget's frame.
    static QPoint Inside();

    /// Mouse events in plot coordinates: the button (1 left, 2 right, 4 middle) and the position.
    using MouseEvent = std::function<void(int button, double x, double y)>;
    MouseEvent MouseDown, MouseMove, MouseUp;
    std::function<void()> DblClick;

protected:
    void Paint(const Stroke& stroke) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void Renew();
    void EndPainting();

    std::optional<SurfaceSize> fixed_;
    QImage picture_;
    std::optional<QPainter> painter_;
    std::vector<Stroke> strokes_; // since the surface was white last
};

} // namespace vastrel
