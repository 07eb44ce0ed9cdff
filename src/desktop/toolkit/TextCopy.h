#pragma once

class QAbstractItemView;

namespace vastrel {

/// Lets what a view shows be copied as text: Ctrl+C and "Copy" of its context menu take what is selected,
/// "Copy All" takes all rows, with the headings where there are some. Tabs stand between columns; the rows of
/// a list stay as they are.
void OfferTextCopy(QAbstractItemView& view);

} // namespace vastrel
