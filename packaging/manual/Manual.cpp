#include "Manual.h"

#include <QAbstractTextDocumentLayout>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextTable>

#include <algorithm>

namespace {

constexpr double BodySize = 9.5, CodeSize = 8, HeadingSizes[] = {20, 13, 11}; // points
constexpr double FootHeight = 0.4;                                            // inches
constexpr int FirstSheet = 2;                                                 // behind the title
const char* const BodyFont = "Liberation Sans";
const char* const CodeFont = "Liberation Mono";
const QColor RuleColour(0xB0, 0xB0, 0xB0), ShadeColour(0xF2, 0xF2, 0xF2), HeadingColour(0x1F, 0x3A, 0x5F);

bool IsCode(const QTextBlock& block) {
    return block.blockFormat().hasProperty(QTextFormat::BlockCodeLanguage);
}

bool IsPicture(const QTextBlock& block) {
    return !block.begin().atEnd() && block.begin().fragment().charFormat().isImageFormat();
}

int HeadingLevel(const QTextBlock& block) {
    return block.blockFormat().headingLevel();
}

QFont BodyOf(double size, bool bold = false) {
    QFont font(BodyFont);
    font.setPointSizeF(size);
    font.setBold(bold);
    return font;
}

/// The stretches of a block that have one format each, as positions in the document.
struct Stretch {
    int Start, End;
    QTextCharFormat Format;
};

std::vector<Stretch> StretchesOf(const QTextBlock& block) {
    std::vector<Stretch> stretches;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment part = it.fragment();
        stretches.push_back({part.position(), part.position() + part.length(), part.charFormat()});
    }
    return stretches;
}

QTextCursor Selection(QTextDocument& document, int start, int end) {
    QTextCursor cursor(&document);
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    return cursor;
}

void SetFont(QTextCharFormat& format, const char* family, double size) {
    format.setFontFamilies({family});
    format.clearProperty(QTextFormat::FontSizeAdjustment);
    format.setFontPointSize(size);
}

/// Inline code and code blocks get the fixed font, headings their sizes.
void StyleText(QTextDocument& document, const QTextBlock& block) {
    for (Stretch& stretch : StretchesOf(block)) {
        if (stretch.Format.isImageFormat()) continue;
        const int level = HeadingLevel(block);
        const bool code = IsCode(block) || stretch.Format.fontFixedPitch();
        const double size = level > 0       ? HeadingSizes[std::min(level, 3) - 1]
                            : IsCode(block) ? CodeSize
                                            : BodySize;
        SetFont(stretch.Format, code ? CodeFont : BodyFont, code && !IsCode(block) ? 0.9 * size : size);
        if (level > 0) stretch.Format.setForeground(HeadingColour);
        Selection(document, stretch.Start, stretch.End).setCharFormat(stretch.Format);
    }
}

} // namespace

Manual::Manual(const std::vector<GuidePage>& guide, const QString& version, QPdfWriter& writer)
    : version_(version), writer_(writer), sheetOfPage_(guide.size(), 0) {
    for (const GuidePage& page : guide)
        markdown_ += InManual(page, guide) + "\n\n";
    // The numbers stand in the text that they count: once they have settled they are right.
    constexpr int patience = 5;
    for (int i = 0; i < patience; ++i) {
        Build();
        const std::vector<int> sheets = HeadingSheets();
        if (sheets == sheetOfPage_) return;
        sheetOfPage_ = sheets;
    }
}

int Manual::SheetCount() const {
    return document_->pageCount() + FirstSheet - 1;
}

void Manual::Build() {
    document_ = std::make_unique<QTextDocument>();
    document_->setUndoRedoEnabled(false);
    document_->setDefaultFont(BodyOf(BodySize));
    document_->setDocumentMargin(0);
    document_->setUseDesignMetrics(true);
    document_->setMarkdown(markdown_, QTextDocument::MarkdownDialectGitHub);
    NameSheets();
    StyleBlocks();
    StyleTables();
    FitPictures();
    document_->documentLayout()->setPaintDevice(&writer_); // not before: every change would be laid out
    document_->setPageSize(QSizeF(writer_.width(), writer_.height() - FootHeight * writer_.resolution()));
    KeepHeadingsWithText();
}

/// A link to a page becomes its text with the number of the sheet behind it.
void Manual::NameSheets() {
    std::vector<Stretch> links;
    for (QTextBlock block = document_->begin(); block.isValid(); block = block.next())
        for (const Stretch& stretch : StretchesOf(block))
            if (stretch.Format.anchorHref().startsWith("page:")) links.push_back(stretch);
    for (auto link = links.rbegin(); link != links.rend(); ++link) { // from the end, so that positions hold
        const auto page = link->Format.anchorHref().mid(5).toULong();
        QTextCharFormat plain = link->Format;
        for (const int property :
             {QTextFormat::IsAnchor, QTextFormat::AnchorHref, QTextFormat::ForegroundBrush,
              QTextFormat::TextUnderlineStyle, QTextFormat::FontUnderline})
            plain.clearProperty(property);
        QTextCursor cursor = Selection(*document_, link->Start, link->End);
        cursor.setCharFormat(plain);
        cursor.setPosition(link->End);
        QTextCharFormat number;
        number.setFontWeight(plain.fontWeight());
        cursor.insertText(QString(" (page %1)").arg(sheetOfPage_.at(page)), number);
    }
}

void Manual::StyleBlocks() {
    for (QTextBlock block = document_->begin(); block.isValid(); block = block.next()) {
        StyleText(*document_, block);
        QTextBlockFormat format = block.blockFormat();
        const int level = HeadingLevel(block);
        if (level == 1 && block.position() > 0)
            format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        if (level > 0) {
            format.setTopMargin(level == 1 ? 0 : 14);
            format.setBottomMargin(6);
        } else if (IsCode(block)) {
            format.setLeftMargin(8);
            format.setTopMargin(0);
            format.setBottomMargin(IsCode(block.next()) ? 0 : 8);
            format.setBackground(ShadeColour);
        } else if (!QTextCursor(block).currentTable()) {
            if (!IsPicture(block)) format.setLineHeight(115, QTextBlockFormat::ProportionalHeight);
            format.setBottomMargin(block.textList() != nullptr ? 2 : 6);
        }
        QTextCursor(block).setBlockFormat(format);
    }
}

void Manual::StyleTables() {
    for (QTextFrame* frame : document_->rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (table == nullptr) continue;
        QTextTableFormat format = table->format();
        format.setBorderCollapse(true);
        format.setBorder(0);
        format.setCellPadding(3);
        format.setCellSpacing(0);
        format.setTopMargin(4);
        format.setBottomMargin(8);
        format.setHeaderRowCount(1);
        table->setFormat(format);
        for (int row = 0; row < table->rows(); ++row)
            for (int column = 0; column < table->columns(); ++column) {
                QTextTableCell cell = table->cellAt(row, column);
                QTextTableCellFormat look = cell.format().toTableCellFormat();
                look.setBottomBorder(0.5);
                look.setBottomBorderStyle(QTextFrameFormat::BorderStyle_Solid);
                look.setBottomBorderBrush(RuleColour);
                if (row == 0) look.setBackground(ShadeColour);
                cell.setFormat(look);
            }
    }
}

/// A picture keeps its size in pixels of 96 to an inch, or is made smaller to fit the width of the text.
void Manual::FitPictures() {
    const double width = 96.0 * writer_.width() / writer_.resolution();
    for (QTextBlock block = document_->begin(); block.isValid(); block = block.next())
        for (const Stretch& stretch : StretchesOf(block)) {
            if (!stretch.Format.isImageFormat()) continue;
            QTextImageFormat format = stretch.Format.toImageFormat();
            const QSize size = QImageReader(format.name()).size();
            const double shown = std::min(width, 0.8 * size.width());
            format.setWidth(shown);
            format.setHeight(shown * size.height() / std::max(1, size.width()));
            Selection(*document_, stretch.Start, stretch.End).setCharFormat(format);
        }
}

/// The sheet of a block's first line, from 1.
int Manual::SheetOf(const QTextBlock& block) const {
    const QTextLine line = block.layout()->lineAt(0);
    const double inside = line.isValid() ? line.y() + line.height() / 2 : 0;
    const double y = document_->documentLayout()->blockBoundingRect(block).top() -
                     block.layout()->boundingRect().top() + inside;
    return static_cast<int>(y / document_->pageSize().height()) + FirstSheet;
}

/// Moves a heading that would stand at the foot of a sheet to the sheet of what follows it.
void Manual::KeepHeadingsWithText() {
    for (QTextBlock block = document_->begin(); block.isValid(); block = block.next()) {
        if (HeadingLevel(block) < 2 || !block.next().isValid() || SheetOf(block) == SheetOf(block.next()))
            continue;
        QTextBlockFormat format = block.blockFormat();
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        QTextCursor(block).setBlockFormat(format);
        document_->markContentsDirty(0,
                                     document_->characterCount()); // what a change lays out alone falls apart
    }
}

std::vector<int> Manual::HeadingSheets() const {
    std::vector<int> sheets;
    for (QTextBlock block = document_->begin(); block.isValid(); block = block.next())
        if (HeadingLevel(block) == 1) sheets.push_back(SheetOf(block));
    return sheets;
}

void Manual::PrintTitle(QPainter& painter) const {
    const int unit = writer_.resolution(); // an inch
    QSvgRenderer icon(QString(":/vastrel.svg"));
    icon.render(&painter, QRectF((writer_.width() - 2 * unit) / 2, 1.5 * unit, 2 * unit, 2 * unit));
    const auto line = [&](double top, double size, bool bold, const QString& text) {
        painter.setFont(BodyOf(size, bold));
        painter.drawText(QRectF(0, top * unit, writer_.width(), unit), Qt::AlignHCenter | Qt::AlignTop, text);
    };
    painter.setPen(HeadingColour);
    line(4, 34, true, "Vastrel");
    line(4.8, 18, false, "User Manual");
    painter.setPen(Qt::black);
    line(5.5, 11, false, "Version " + version_);
}

void Manual::PrintFoot(QPainter& painter, int sheet) const {
    painter.setFont(BodyOf(8));
    painter.setPen(Qt::darkGray);
    painter.drawText(QRectF(0, 0, writer_.width(), writer_.height()), Qt::AlignHCenter | Qt::AlignBottom,
                     QString::number(sheet));
}

void Manual::Print() {
    QPainter painter(&writer_);
    painter.setRenderHint(QPainter::LosslessImageRendering);
    PrintTitle(painter);
    const double height = document_->pageSize().height();
    for (int sheet = FirstSheet; sheet <= SheetCount(); ++sheet) {
        writer_.newPage();
        PrintFoot(painter, sheet);
        QAbstractTextDocumentLayout::PaintContext context;
        context.palette.setColor(QPalette::Text, Qt::black);
        context.clip = QRectF(0, (sheet - FirstSheet) * height, writer_.width(), height - 2);
        painter.save();
        painter.translate(0, -context.clip.top());
        painter.setClipRect(context.clip);
        document_->documentLayout()->draw(&painter, context);
        painter.restore();
    }
}
