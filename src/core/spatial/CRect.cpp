#include "core/spatial/CRect.h"

namespace vastrel {

void CRect::MakeEmpty() {
    MakeXY(0, 0, 0, 0);
    lowerRight_.Y = 0;
}

void CRect::Make(const CPoint& upperLeft, const CPoint& lowerRight) {
    upperLeft_.X = upperLeft.X;
    upperLeft_.Y = upperLeft.Y;
    lowerRight_.X = lowerRight.X;
    lowerRight_.Y = lowerRight.Y;
}

void CRect::MakeXY(double x1, double y1, double x2, double y2) {
    upperLeft_.X = x1;
    upperLeft_.Y = y1;
    lowerRight_.X = x2;
    lowerRight_.X = y2;
}

void CRect::TakeEdges(double left, double right, double top, double bottom) {
    SetLeft(left);
    SetRight(right);
    SetTop(top);
    SetBottom(bottom);
}

void CRect::MoveOutwards(double left, double right, double top, double bottom) {
    if (left < Left()) SetLeft(left);
    if (right > Right()) SetRight(right);
    if (bottom < Bottom()) SetBottom(bottom);
    if (top > Top()) SetTop(top);
}

} // namespace vastrel
