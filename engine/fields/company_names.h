#pragma once

#include <QString>

// The forms that company names have.
namespace fennick::engine {

// `line` without what tills put around a name ("*** Corner Shop ***"), without a second column, and without
// the registration number that follows it; the legal form put right where recognition misread it ("SON BHD").
QString companyName(const QString &line);

// Whether `name` ends in a legal form: Sdn Bhd, Ltd, GmbH, Inc, AB ...
bool hasLegalForm(const QString &name);

// Whether `name` is what follows a name only, as "Co. (M) Sdn Bhd" does: its first line was not read.
bool isOnlyLegalForm(const QString &name);

// Whether `name` bears a word that shops and firms call themselves by: Restaurant, Trading, Hardware ...
// "Bistro & Cafe" has nothing else and tells what the shop is, not its name.
bool hasBusinessWord(const QString &name);

} // namespace fennick::engine
