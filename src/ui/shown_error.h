#pragma once

#include "extraction/gemini_error.h"
#include "pipeline/app_state.h"

namespace fennick {

// A receipt's stored error in the user's language, as far as the program knows it.
inline QString shownError(const QString &stored) {
    // Nothing stands for the whole list of translations.
    const QString own = stored.isEmpty() ? stored : AppState::tr(stored.toUtf8().constData());
    return own == stored ? inUsersLanguage(stored) : own;
}

} // namespace fennick
