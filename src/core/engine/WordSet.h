// A fixed set of words of the language, asked in any case.
#pragma once

#include <QSet>
#include <QString>
#include <QStringView>

#include <span>

class WordSet {
public:
    /// @param words  upper case, ASCII
    explicit WordSet(std::span<const char* const> words)
    {
        for (const char* word : words)
            set.insert(QString::fromLatin1(word));
    }

    /// Whether the trimmed text is one of the words, in any case.
    bool Contains(QStringView text) const { return set.contains(text.trimmed().toString().toUpper()); }

private:
    QSet<QString> set;
};
