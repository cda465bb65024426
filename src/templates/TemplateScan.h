#pragma once

#include <QString>
#include <vector>

// The page templates (.CVT files) found below a directory, with the name and description each
// gives itself, for the template chooser.
struct TemplateRecord {
    QString path;        // full path of the file
    QString name;        // file name without directory and without its last four characters
    QString description; // from the file's description meta tag, "" when it has none
};

using TemplateList = std::vector<TemplateRecord>;

// A directory's own templates first, then, when wanted, those of each subdirectory, depth
// first. Entries are taken in name order, letter case ignored, hidden files included.
void ScanTemplates(const QString &directory, bool withSubdirectories, TemplateList &records);
// Adds the file when its name ends in ".CVT" in any letter case; anything else is left out.
void AddTemplate(const QString &path, TemplateList &records);
// The text between <meta name="description" content=" (any letter case) and the next ">,
// as it stands; "" when the file has none or cannot be read.
QString GetTemplateDescription(const QString &path);

// The name a template path shows under: "/t/Standard.cvt" is "Standard".
QString templateName(const QString &path);
// The directory part of a path, up to and including its last separator; "" when it has none.
QString templateRoot(const QString &path);
