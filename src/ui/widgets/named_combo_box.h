#pragma once

#include <QComboBox>

namespace fennick {

// A combo box that assistive tools know by its accessible name, with the chosen text as its value. On Linux,
// Qt gives them the chosen text as the name of any other one.
class NamedComboBox : public QComboBox {
    Q_OBJECT

public:
    explicit NamedComboBox(QWidget *parent = nullptr);
};

} // namespace fennick
