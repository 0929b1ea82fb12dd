#pragma once

#include "engine/generate_request.h"
#include "engine/read_error.h"
#include "engine/receipt_fields.h"

#include <QJsonObject>
#include <QString>

// Answers in the shape of the generateContent service.
namespace fennick {

// One candidate whose only part's text is the fields as a JSON object; absent fields are null.
QJsonObject generateAnswer(const ReceiptFields &fields, const QString &model);

// {"error": {...}} as the service words its failures.
QJsonObject errorAnswer(const ServiceError &error);

// What a caller is told about a document that cannot be read: its own fault (400) unless the engine lacks
// something (500).
ServiceError serviceError(ReadError error);

} // namespace fennick
