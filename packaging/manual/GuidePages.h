#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// One page of the user guide: a Markdown file with one heading of the first level.
struct GuidePage {
    QString Path; // absolute and canonical
    QString Markdown;
};

/// The pages of the guide in a folder: its index README.md, and then every page that the index links to, each
/// once, in the order of the links. An index that it links to brings its own pages behind it. A page that
/// cannot be read ends the program with a message.
std::vector<GuidePage> ReadGuide(const QString& folder);

/// The page as it goes into a manual of one piece: links to other pages of the guide lead to "page:3",
/// counted from 0, pictures are named by their whole path, and other links into the project are plain text.
QString InManual(const GuidePage& page, const std::vector<GuidePage>& guide);
