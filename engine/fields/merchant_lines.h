#pragma once

#include <QString>

// What the lines at the top of a receipt are, other than the seller's name.
namespace fennick::engine {

// "Tax invoice", "Welcome to": nothing but words of headings, greetings and numbers.
bool isHeading(const QString &line);

// Contact data, an address or a labelled value: "Tel 030 1234", "12 High Street", "Lot 5, Jalan Duta",
// "Table: 4".
bool isDetail(const QString &line);

// A company's registration or tax number, which stands below or behind the name it belongs to.
bool isRegistration(const QString &line);

// "Bill to", "Owned by": the name that follows is not the seller's.
bool introducesAnother(const QString &line);

// At least half of the signs are letters, at least three of them.
bool isMostlyLetters(const QString &line);

} // namespace fennick::engine
