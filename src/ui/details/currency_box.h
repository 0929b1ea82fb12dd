#pragma once

#include "ui/widgets/named_combo_box.h"

namespace fennick {

// Takes a currency's code: typed, or chosen from a list of those in use, which shows their names.
class CurrencyBox : public NamedComboBox {
    Q_OBJECT

public:
    explicit CurrencyBox(QWidget *parent = nullptr);
};

} // namespace fennick
