#include "desktop/toolkit/MapPicture.h"

#include "core/platform/ErrorBoundary.h"
#include "desktop/toolkit/PlotWidget.h"

#include <QAction>
#include <QMenu>
#include <QPainter>

namespace vastrel {

namespace {

/// Where a widget stands in its window.
QRect PlaceOf(const QWidget& widget) {
    return {widget.mapTo(widget.window(), QPoint(0, 0)), widget.size()};
}

bool IsOnShow(const QWidget& widget) {
    return widget.isVisibleTo(widget.window());
}

void PaintSurface(QPainter& painter, const PlotWidget& surface, const QRect& place) {
    painter.save();
    painter.setClipRect(place);
    painter.translate(place.topLeft() + PlotWidget::Inside());
    surface.Repeat(painter);
    painter.restore();
}

// NOLINTNEXTLINE(misc-no-recursion): no deeper than the window's parts
void PaintPart(QPainter& painter, QWidget& part) {
    const QRect place = PlaceOf(part);
    if (auto* surface = qobject_cast<PlotWidget*>(&part)) {
        PaintSurface(painter, *surface, place);
        for (auto* inside : part.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            if (IsOnShow(*inside)) PaintPart(painter, *inside);
        return;
    }
    part.render(&painter, place.topLeft());
}

} // namespace

Picture PictureOf(const ShownMap& shown) {
    const QRect map = PlaceOf(*shown.Map);
    QRect area = map;
    for (const QWidget* part : shown.Legend)
        if (IsOnShow(*part)) area |= PlaceOf(*part);
    if (shown.Print != nullptr) area.setLeft(PlaceOf(*shown.Print).left());
    return {area.size(), [shown, map, area](QPaintDevice& device) {
                QPainter painter(&device);
                painter.translate(-area.topLeft());
                painter.fillRect(area, Qt::white);
                PaintSurface(painter, *shown.Map, map);
                // Some formats know no clipping: what a zoom has moved out of the map is covered.
                for (const QRect& beside : QRegion(area) - map)
                    painter.fillRect(beside, Qt::white);
                if (shown.Print != nullptr) PaintSurface(painter, *shown.Print, PlaceOf(*shown.Print));
                for (QWidget* part : shown.Legend)
                    if (IsOnShow(*part)) PaintPart(painter, *part);
            }};
}

void OfferMapPicture(QMenu& windowMenu, const ShownMap& shown) {
    windowMenu.addSeparator();
    AddPictureEntries(windowMenu, [shown] { return PictureOf(shown); });
    shown.Map->setFocusPolicy(Qt::ClickFocus);
    auto* copy = new QAction(shown.Map);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(copy, &QAction::triggered, shown.Map,
                     [shown] { InBoundary([&] { CopyPicture(PictureOf(shown)); }); });
    shown.Map->addAction(copy);
}

} // namespace vastrel
