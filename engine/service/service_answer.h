#pragma once

#include "engine/fields/receipt_fields.h"
#include "engine/recognition/read_error.h"
#include "engine/service/generate_request.h"

#include <QJsonObject>
#include <QString>

#include <optional>

// Answers in the shape of the generateContent service.
namespace fennick::engine {

// One candidate whose only part's text is the fields as a JSON object; absent fields are null. Beside it the
// member "evidence" has an object for each of "date", "time", "total", "currency" and "merchant" whose place
// on the document is known: "page" (from 1), "x", "y", "width" and "height" (0 to 1, from the top left corner
// of the page as it is shown) and "text", what is printed there, at most 200 characters of it.
QJsonObject generateAnswer(const ReceiptFields &fields, const QString &model);

// The objects of "evidence" by their names.
QJsonObject evidenceMembers(const ReceiptEvidence &evidence);

// Adds one of them if its place is known.
void insertEvidence(QJsonObject &members, const QString &name, const std::optional<Evidence> &evidence);

// {"error": {...}} as the service words its failures.
QJsonObject errorAnswer(const ServiceError &error);

// What a caller is told about a document that cannot be read: its own fault (400) unless the engine lacks
// something (500).
ServiceError serviceError(ReadError error);

} // namespace fennick::engine
