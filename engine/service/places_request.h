#pragma once

#include "engine/fields/receipt_fields.h"
#include "engine/service/generate_request.h"
#include "engine/service/value_locator.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <expected>

// Asking where given values stand on a document. It stands beside the generateContent service, which has no
// such thing, at an address of the engine's own, and takes no key.
namespace fennick::engine {

// The path of the address.
extern const QString placesPath;

struct PlacesRequest {
    ReceiptFields values;
    QByteArray document;
};

// The body of a request: the one of a generateContent request with a member "values", an object with the
// members "date" (yyyy-MM-dd), "time" (HH:mm), "amount" (a number), "currency" (ISO 4217), "location",
// "category" and "summary". Each may be absent or null; one that does not fit is an error. Takes up to three
// times the size of the body, which is given up on the way.
std::expected<PlacesRequest, ServiceError> placesRequest(QByteArray body);

// The members "evidence", as in the answer of generateContent, besides with "category" and "summary";
// "missing", the names of those that are surely nowhere; and "pages", how many were read.
QJsonObject placesAnswer(const LocatedValues &located);

} // namespace fennick::engine
