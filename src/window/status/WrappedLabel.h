// A label of wrapped text that measures each width once. A layout asks for the same few widths over and over, and a
// text of tens of thousands of characters takes its time.
#pragma once

#include <QHash>
#include <QLabel>

class WrappedLabel : public QLabel {
public:
    using QLabel::QLabel;

    int heightForWidth(int width) const override
    {
        if (measuredText != text() || measuredFont != font()) {
            heights.clear();
            measuredText = text();
            measuredFont = font();
        }
        const auto known = heights.constFind(width);
        return known != heights.constEnd() ? *known : *heights.insert(width, QLabel::heightForWidth(width));
    }

private:
    mutable QHash<int, int> heights;
    mutable QString measuredText;
    mutable QFont measuredFont;
};
