#include "engine/service/places_request.h"

#include "engine/service/service_answer.h"

#include <QJsonArray>

#include <cmath>
#include <utility>

namespace fennick::engine {

using namespace Qt::StringLiterals;

const QString placesPath = u"/fennick/v1/places"_s;

namespace {

// Far longer than any value; matching takes time that grows with it.
constexpr qsizetype longestValue = 1000;
// Beyond it, thousandths would not be exact.
constexpr double largestAmount = 1e12;

ServiceError unfitValue(const QString &name) {
    return invalidArgument(u"The value \"%1\" does not fit."_s.arg(name));
}

// Takes the members of "values" one by one and remembers the first that does not fit.
class ValueMembers {
public:
    explicit ValueMembers(QJsonObject members)
        : members_(std::move(members)) {}

    QString text(const QString &name) {
        const QJsonValue value = members_.value(name);
        const QString text = value.toString();
        if ((!value.isString() && !isAbsent(value)) || text.size() > longestValue) {
            refuse(name);
        }
        return text;
    }

    std::optional<double> number(const QString &name) {
        const QJsonValue value = members_.value(name);
        if (isAbsent(value)) {
            return std::nullopt;
        }
        if (!value.isDouble() || std::abs(value.toDouble()) > largestAmount) {
            refuse(name);
        }
        return value.toDouble();
    }

    void refuse(const QString &name) {
        if (unfit_.isEmpty()) {
            unfit_ = name;
        }
    }

    const QString &unfit() const { return unfit_; }

private:
    static bool isAbsent(const QJsonValue &value) { return value.isUndefined() || value.isNull(); }

    QJsonObject members_;
    QString unfit_;
};

std::optional<QString> orAbsent(const QString &text) {
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

std::expected<ReceiptFields, ServiceError> valuesIn(const QJsonValue &value) {
    if (!value.isObject()) {
        return std::unexpected(invalidArgument(u"The request has no values to look for."_s));
    }
    ValueMembers members(value.toObject());
    ReceiptFields values;
    if (const QString text = members.text(u"date"_s); !text.isEmpty()) {
        values.date = QDate::fromString(text, u"yyyy-MM-dd"_s);
        if (!values.date->isValid()) {
            members.refuse(u"date"_s);
        }
    }
    if (const QString text = members.text(u"time"_s); !text.isEmpty()) {
        values.time = QTime::fromString(text, u"HH:mm"_s);
        if (!values.time->isValid()) {
            members.refuse(u"time"_s);
        }
    }
    values.amount = members.number(u"amount"_s);
    values.currency = orAbsent(members.text(u"currency"_s));
    values.location = orAbsent(members.text(u"location"_s));
    values.category = members.text(u"category"_s);
    values.summary = members.text(u"summary"_s);
    if (!members.unfit().isEmpty()) {
        return std::unexpected(unfitValue(members.unfit()));
    }
    return values;
}

} // namespace

std::expected<PlacesRequest, ServiceError> placesRequest(QByteArray body) {
    std::expected<QJsonObject, ServiceError> request = requestObject(body);
    body = {};
    if (!request) {
        return std::unexpected(std::move(request.error()));
    }
    std::expected<ReceiptFields, ServiceError> values = valuesIn(request->value("values"_L1));
    if (!values) {
        return std::unexpected(std::move(values.error()));
    }
    std::expected<QByteArray, ServiceError> document = inlineDocument(*std::move(request));
    if (!document) {
        return std::unexpected(std::move(document.error()));
    }
    return PlacesRequest{*std::move(values), *std::move(document)};
}

QJsonObject placesAnswer(const LocatedValues &located) {
    QJsonObject evidence = evidenceMembers(located.evidence);
    insertEvidence(evidence, u"category"_s, located.evidence.category);
    insertEvidence(evidence, u"summary"_s, located.evidence.summary);
    return {{u"evidence"_s, evidence},
            {u"missing"_s, QJsonArray::fromStringList(located.missing)},
            {u"pages"_s, located.pages}};
}

} // namespace fennick::engine
