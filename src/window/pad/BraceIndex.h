// Where the braces of a document stand, kept up to date with each edit, so that nobody reads the whole pad per key to
// find out whether an equation block is open.
#pragma once

#include <QObject>
#include <QTextDocument>

#include <vector>

struct Brace {
    int position; // in UTF-16 units from the document's start
    bool open;
};

class BraceIndex : public QObject {
public:
    /// Follows `watched`, which must outlive the index.
    explicit BraceIndex(QTextDocument* watched);

    /// The last brace that begins before `position` and the one before that; null where there is none.
    const Brace* LastBefore(int position) const;
    const Brace* Previous(const Brace* brace) const;

private:
    void Update(int from, int removed, int added);
    std::vector<Brace> BracesIn(int from, int end) const;

    QTextDocument* document;
    std::vector<Brace> braces; // ascending
};
