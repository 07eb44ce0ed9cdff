#pragma once

#include "GuidePages.h"

#include <QPdfWriter>
#include <QTextDocument>

#include <memory>

/// The pages of the guide as one document that is cut into sheets of paper: a title, then every page of the
/// guide from the top of a sheet, with links to other pages told by their sheet, and a number at the foot.
class Manual {
public:
    /// `writer` gives the size of the paper and the resolution, and must outlive the manual.
    Manual(const std::vector<GuidePage>& guide, const QString& version, QPdfWriter& writer);

    /// The sheet, from 1, on which each page of the guide begins.
    const std::vector<int>& SheetOfPage() const { return sheetOfPage_; }
    int SheetCount() const;

    void Print();

private:
    void Build();
    void NameSheets();
    void StyleBlocks();
    void StyleTables();
    void FitPictures();
    void KeepHeadingsWithText();
    int SheetOf(const QTextBlock& block) const;
    std::vector<int> HeadingSheets() const;
    void PrintTitle(QPainter& painter) const;
    void PrintFoot(QPainter& painter, int sheet) const;

    QString markdown_;
    QString version_;
    QPdfWriter& writer_;
    std::unique_ptr<QTextDocument> document_;
    std::vector<int> sheetOfPage_;
};
