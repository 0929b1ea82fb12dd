#pragma once

#include <QString>

namespace fennick::GeminiClient {

// An error text with "[API key]" wherever the key stands, also where it is spelled as in a URL or in JSON:
// servers and the network library like to repeat the request's location. The same words in every language,
// for they may also end up in the list and its ledgers.
QString withoutKey(QString text, const QString &key);

} // namespace fennick::GeminiClient
