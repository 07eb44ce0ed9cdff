#include "core/spatial/CPart.h"

namespace vastrel {

void CPart::Remove(int index) {
    points_.Remove(index);
    for (int k = 1; k <= Count(); ++k)
        BoxedItems<CPoint>::Enclose(Item(k), k == 1, box_);
}

} // namespace vastrel
