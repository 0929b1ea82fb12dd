#include "seeded_random.h"

#include <QCryptographicHash>

namespace fennick {

namespace {

uint32_t hashOf(const QByteArray &seed) {
    const QByteArray hash = QCryptographicHash::hash(seed, QCryptographicHash::Sha256);
    uint32_t number = 0;
    for (int index = 0; index < 4; ++index) {
        number = number << 8 | static_cast<uchar>(hash[index]);
    }
    return number;
}

} // namespace

SeededRandom::SeededRandom(const QByteArray &seed)
    : m_engine(hashOf(seed)) {}

int SeededRandom::below(int count) {
    return static_cast<int>(m_engine() % static_cast<uint32_t>(count));
}

int SeededRandom::between(int least, int most) {
    return least + below(most - least + 1);
}

double SeededRandom::share() {
    return static_cast<double>(m_engine()) / (static_cast<double>(std::mt19937::max()) + 1);
}

double SeededRandom::between(double least, double most) {
    return least + (most - least) * share();
}

bool SeededRandom::chance(double probability) {
    return share() < probability;
}

QString SeededRandom::oneOf(const QStringList &texts) {
    return texts.isEmpty() ? QString() : texts[below(static_cast<int>(texts.size()))];
}

QString SeededRandom::filled(const QString &text) {
    QString result;
    for (const QChar character : text) {
        if (character == u'#') {
            const bool isFirst = result.isEmpty() || !result.back().isDigit();
            result += QChar(u'0' + (isFirst ? between(1, 9) : below(10)));
        } else if (character == u'@') {
            result += QChar(u'A' + below(26));
        } else {
            result += character;
        }
    }
    return result;
}

} // namespace fennick
