// The ruled lines of the manual's plain text, drawn anew for a pane of any width.
//
// A line of equals signs alone is a rule, one that begins and ends with them is a title. Widths are in pixels
// and measured to their fractions: a line that is wider by less than half a pixel would be wrapped.
#pragma once

#include <QString>

class QFontMetricsF;

/// A text with its rules and titles as wide as the pane; all other lines stay as they are.
QString FitRuledLines(const QString& text, int width, const QFontMetricsF& metrics);

/// The longest line of equals signs that is no wider than `width`; at least one.
QString BuildFullWidthEquals(int width, const QFontMetricsF& metrics);

/// The title in the middle of the longest line of equals signs that is no wider than `width`; at least one on each
/// side, and one more on the left where they cannot be shared evenly.
QString BuildTitleLine(const QString& title, int width, const QFontMetricsF& metrics);
