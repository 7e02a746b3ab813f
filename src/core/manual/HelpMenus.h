// The manual's ways in: the index, the page on HELP itself, and a menu for each area.
//
// Their texts stand in resources/manual/ways-in. A line "{WINDOWS}..." of these texts is there only while the manual
// has articles of the category WINDOWS. A menu's item of one line takes its further lines, the syntax and the summary,
// from the article that it opens.
#pragma once

#include "core/manual/HelpEntry.h"

/// The master index.
QString BuildHelpIndex(const QList<HelpEntry>& entries);

/// The page on using HELP.
QString BuildHelpAboutHelp();

/// @param word  any form of a menu's word, such as "finance"
/// @param text  the menu; unchanged where there is none
/// @return whether the word names a menu
bool BuildHelpSubmenu(QStringView word, const QList<HelpEntry>& entries, QString& text);

/// A menu's text with a rule between its items.
QString FormatHelpMenu(QString text);
