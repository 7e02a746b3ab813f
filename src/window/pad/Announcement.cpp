#include "window/pad/Announcement.h"

#include <QAccessible>
#include <QWidget>

namespace {

// What is read aloud comes to an end; a help text or a list can be read in the pad itself.
constexpr qsizetype longestAnnouncement = 1000; // UTF-16 units

QString SpokenText(const Submission& submission)
{
    QString text;
    for (const PadRun& run : submission.runs) {
        text += run.text;
        if (text.size() > longestAnnouncement)
            break;
    }
    text = text.left(longestAnnouncement).trimmed();
    return text.isEmpty() ? submission.status.value_or(QString()) : text;
}

} // namespace

void AnnounceSubmission(QWidget& padEditor, const Submission& submission)
{
    padEditor.setAccessibleDescription(QString()); // or the same answer again would be no change
    padEditor.setAccessibleDescription(SpokenText(submission));
    QAccessibleEvent alert(&padEditor, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}
