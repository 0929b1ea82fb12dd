#pragma once

#include <QByteArray>
#include <QStringList>

#include <cstdint>
#include <random>

namespace fennick {

// Numbers that follow from a seed alone. The distributions of the standard library are not used, for each
// library has its own.
class SeededRandom {
public:
    explicit SeededRandom(const QByteArray &seed);

    // From 0 to `count` - 1.
    int below(int count);
    // From `least` to `most`.
    int between(int least, int most);
    // From 0 up to 1.
    double share();
    double between(double least, double most);
    bool chance(double probability);
    // Empty if there is none.
    QString oneOf(const QStringList &texts);
    // `text` with a digit for each #, the first of a number not being 0, and a capital for each @.
    QString filled(const QString &text);

private:
    std::mt19937 m_engine;
};

} // namespace fennick
