#pragma once

#include <QComboBox>

namespace fennick {

// Takes a currency's code: typed, or chosen from a list of those in use, which shows their names.
class CurrencyBox : public QComboBox {
    Q_OBJECT

public:
    explicit CurrencyBox(QWidget *parent = nullptr);
};

} // namespace fennick
