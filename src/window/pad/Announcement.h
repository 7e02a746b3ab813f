// Telling assistive technology what a submitted line has brought: a screen reader follows the caret, and the caret
// stands below the answer.
#pragma once

#include "core/Submission.h"

class QWidget;

/// Announces what was written into the pad, or the status if nothing was: it becomes the pad's accessible description,
/// and an alert draws attention to it.
void AnnounceSubmission(QWidget& padEditor, const Submission& submission);
