#include "extraction/gemini_request.h"

#include "extraction/request_document.h"
#include "extraction/valid_categories.h"
#include "kinds/document_kind.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace fennick::GeminiClient {

namespace {

const QString instruction =
    u"You are a receipt data extraction assistant. Analyze the provided receipt image or document and "
    u"extract "
    "the following information.\n"
    "\n"
    "Return ONLY a valid JSON object with these exact fields:\n"
    "- date: string in YYYY-MM-DD format, or null if not visible\n"
    "- time: string in HH:MM 24-hour format, or null if not visible\n"
    "- amount: number (the total amount paid, no currency symbol), or null if not visible\n"
    "- currency: ISO 4217 currency code (USD, EUR, GBP, etc.), or null if unknown\n"
    "- location: merchant name and/or address as a short string, or null if not visible\n"
    "- category: one of exactly these values: lunch, dinner, breakfast, coffee, hotel, transport, fuel, "
    "groceries, shopping, entertainment, misc\n"
    "- summary: one concise sentence describing this receipt (e.g. \"Lunch at Mario's Cafe for $23.50\")\n"
    "\n"
    "Do not include any text outside the JSON object."_s;

QJsonObject nullable(const QString &type, const QString &description) {
    return {{u"type"_s, type}, {u"nullable"_s, true}, {u"description"_s, description}};
}

QJsonArray categories() {
    QJsonArray array;
    for (const QStringView category : validCategories) {
        array.append(category.toString());
    }
    return array;
}

// "category" and "summary" carry no "nullable", unlike the other five. That is intended.
QJsonObject properties() {
    const QString string = u"string"_s;
    return {
        {u"date"_s, nullable(string, u"Date in YYYY-MM-DD format, or null if not found"_s)},
        {u"time"_s, nullable(string, u"Time in HH:MM 24-hour format, or null if not found"_s)},
        {u"amount"_s,
         nullable(u"number"_s, u"Total amount as a number (no currency symbol), or null if not found"_s)},
        {u"currency"_s,
         nullable(string, u"ISO 4217 currency code (e.g. USD, EUR, GBP), or null if not found"_s)},
        {u"location"_s, nullable(string, u"Merchant name or address, or null if not found"_s)},
        {u"category"_s, QJsonObject{{u"type"_s, string},
                                    {u"enum"_s, categories()},
                                    {u"description"_s, u"Best matching category for this receipt"_s}}},
        {u"summary"_s, QJsonObject{{u"type"_s, string},
                                   {u"description"_s, u"One short sentence describing this receipt"_s}}},
    };
}

QJsonObject responseSchema() {
    return {{u"type"_s, u"object"_s},
            {u"properties"_s, properties()},
            {u"required"_s, QJsonArray{u"date"_s, u"time"_s, u"amount"_s, u"currency"_s, u"location"_s,
                                       u"category"_s, u"summary"_s}}};
}

QJsonObject generationConfig() {
    return {{u"responseMimeType"_s, u"application/json"_s},
            {u"responseSchema"_s, responseSchema()},
            {u"temperature"_s, 0}};
}

QByteArray compactJson(const QJsonObject &object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace

QString mimeType(const QString &filePath) {
    const std::optional<DocumentKind> kind = kindOfName(filePath);
    return kind ? mimeTypeOf(*kind) : u"application/octet-stream"_s;
}

std::expected<QByteArray, FileProblem> requestBody(const FileToRead &wanted) {
    // Only the small parts go through a JSON library: it would copy a large document several times over.
    const QByteArray head = "{\"generationConfig\":" + compactJson(generationConfig()) +
                            ",\"contents\":[{\"parts\":[" + compactJson({{u"text"_s, instruction}}) +
                            ",{\"inlineData\":{\"mimeType\":\"" + mimeType(wanted.path).toLatin1() +
                            "\",\"data\":\"";
    const QByteArray tail = "\"}}]}]}";
    return bodyWithDocument(head, wanted, tail);
}

} // namespace fennick::GeminiClient
