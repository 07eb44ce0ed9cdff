#include "GuidePages.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTextStream>

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace {

/// A link or, behind "!", a picture: the mark, the text, the place up to its "#".
const QRegularExpression& LinkPattern() {
    static const QRegularExpression pattern(R"((!?)\[([^\]]*)\]\(([^)#\s]*)(?:#[^)\s]*)?\))");
    return pattern;
}

QString FolderOf(const GuidePage& page) {
    return QFileInfo(page.Path).path();
}

/// The file that a link of a page leads to; empty where there is none.
QString Target(const GuidePage& page, const QString& place) {
    return place.isEmpty() ? page.Path : QFileInfo(FolderOf(page) + "/" + place).canonicalFilePath();
}

std::ptrdiff_t NumberOf(const QString& path, const std::vector<GuidePage>& guide) {
    const auto found =
        std::find_if(guide.begin(), guide.end(), [&](const auto& page) { return page.Path == path; });
    return found == guide.end() ? -1 : found - guide.begin();
}

GuidePage ReadPage(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::cerr << path.toStdString() << " cannot be read.\n";
        std::exit(EXIT_FAILURE);
    }
    return {QFileInfo(path).canonicalFilePath(), QString::fromUtf8(file.readAll())};
}

void AddIndex(const QString& path, const QString& root, std::vector<GuidePage>& guide) {
    const GuidePage index = ReadPage(path);
    guide.push_back(index);
    for (auto links = LinkPattern().globalMatch(index.Markdown); links.hasNext();) {
        const QString target = Target(index, links.next().captured(3));
        if (!target.endsWith(".md") || !target.startsWith(root + "/") || NumberOf(target, guide) >= 0)
            continue;
        if (target.endsWith("/README.md"))
            AddIndex(target, root, guide);
        else
            guide.push_back(ReadPage(target));
    }
}

QString Rewritten(const QRegularExpressionMatch& link, const GuidePage& page,
                  const std::vector<GuidePage>& guide) {
    const QString text = link.captured(2), place = link.captured(3), target = Target(page, place);
    if (link.captured(1) == "!") return "![" + text + "](" + target + ")";
    if (place.contains("://")) return link.captured(0);
    const std::ptrdiff_t number = NumberOf(target, guide);
    const bool elsewhere = number >= 0 && target != page.Path;
    return elsewhere ? "[" + text + "](page:" + QString::number(number) + ")" : text;
}

} // namespace

std::vector<GuidePage> ReadGuide(const QString& folder) {
    std::vector<GuidePage> guide;
    const QString root = QFileInfo(folder).canonicalFilePath();
    AddIndex(root + "/README.md", root, guide);
    return guide;
}

QString InManual(const GuidePage& page, const std::vector<GuidePage>& guide) {
    QString text;
    qsizetype done = 0;
    for (auto links = LinkPattern().globalMatch(page.Markdown); links.hasNext();) {
        const QRegularExpressionMatch link = links.next();
        text += page.Markdown.mid(done, link.capturedStart() - done) + Rewritten(link, page, guide);
        done = link.capturedEnd();
    }
    return text + page.Markdown.mid(done);
}
