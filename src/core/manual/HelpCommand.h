// The HELP command: which page of the manual a typed line asks for.
#pragma once

#include "core/Submission.h"

#include <QString>
#include <QStringView>

#include <optional>

/// A page of the manual and where it stands.
struct HelpPage {
    /// "SPECIAL:INDEX", "SPECIAL:ABOUT" or "SPECIAL:ALL"; "CATEGORY:" or "TOPIC:" with the normalized word or title;
    /// empty for the results of a search, which stand nowhere.
    QString key;
    QString text;
};

/// The page that a line asks for: `?`, HELP, HELP with a word or a switch. A word that names nothing is searched for.
/// Nothing where the line is no help command.
std::optional<HelpPage> HandleHelpCommand(QStringView line);

/// A page for the pad: its ruled headings bold, a line feed at its end.
QList<PadRun> FormattedHelpText(const QString& text);

/// Takes a switch such as `/ALL` off the beginning of a text. Only letters and digits count, so that `ALL`, `-ALL` and
/// `/ A.L L` pass for it; a longer word does not.
///
/// @param text  what is left, trimmed; unchanged without the switch
/// @param name  upper case
/// @return whether the switch was there
bool RemoveHelpSwitch(QString& text, QStringView name);
