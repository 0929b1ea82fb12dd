#pragma once

#include "support/scripted_server.h"

#include <QByteArray>
#include <QString>

// Receipts that differ in their number, 1 to 31: the day in May 2024, the shop and the amount follow from it.
namespace fennick::test {

// A picture of its own for each receipt, so that the service can tell them apart.
QByteArray numberedPicture(int number);

// The number of the picture in a request; 0 for any other.
int numberIn(const HttpRequest &request);

QString shop(int number);

// What the service reads of it: the amount is the number and a half, in US dollars.
QByteArray numberedAnswer(int number);

} // namespace fennick::test
