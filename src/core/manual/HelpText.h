// The manual as text: one article, the whole manual, the results of a search.
#pragma once

#include "core/manual/HelpEntry.h"

/// An article between its ruled heading and a closing rule.
QString FormatHelpTopic(const HelpEntry& entry);

/// All articles in their order, with a heading wherever the category changes.
QString BuildFullHelp(const QList<HelpEntry>& entries);

/// The articles in which each word of the query occurs, in any case and anywhere in title, aliases, category, summary
/// or details; in the manual's order. Without words nothing matches.
///
/// @param afterFailedTopic  the query was meant as a topic that the manual does not have
QString BuildSearchResults(const QList<HelpEntry>& entries, const QString& query, bool afterFailedTopic);
