// The manual's articles, read from text that is compiled into the program (resources/manual).
//
// A file is a sequence of articles:
//
//     # TITLE
//     category: FUNCTIONS
//     aliases: SQRT, SQUARE ROOT
//     summary: One sentence.
//
//     The text, as it is to stand in the manual.
//
// A line of the head that begins with a blank goes on with the line above. The article of a function has no summary;
// its text is six sections, "Description:", "Syntax:", "Arguments:", "Examples:", "Purpose:" and "How It Works:", and
// there too a line that begins with a blank goes on with the line above. "contents.txt" names the files in their order.
#pragma once

#include "core/manual/HelpEntry.h"

void AddHelpEntry(QList<HelpEntry>& entries, const QString& title, const QStringList& aliases, const QString& category,
                  const QString& summary, const QString& details);

/// The article of a function: its sections under their headings. The description is the summary as well.
void AddStandardFunctionHelpEntry(QList<HelpEntry>& entries, const QString& title, const QStringList& aliases,
                                  const QString& category, const QString& description, const QString& syntax,
                                  const QString& arguments, const QString& examples, const QString& purpose,
                                  const QString& howItWorks);

/// Appends the articles of one file's text, in their order.
void ReadHelpArticles(const QString& text, QList<HelpEntry>& entries);

/// Appends the whole manual, in its order. The files are read at the first call.
void BuildGeneralHelpEntries(QList<HelpEntry>& entries);

/// A text file of the manual, empty where there is none of that name.
QString ManualFile(const QString& name);
