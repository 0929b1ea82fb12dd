#pragma once

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <functional>

namespace fennick::test {

// Does something to the next modal dialog of type Dialog once it is on the screen.
template <typename Dialog>
void onNextDialog(const std::function<void(Dialog *)> &act) {
    auto *const look = new QTimer(qApp);
    QObject::connect(look, &QTimer::timeout, look, [look, act] {
        auto *const dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
        if (dialog != nullptr && dialog->isVisible()) {
            look->deleteLater();
            act(dialog);
        }
    });
    look->start(5);
}

inline void clickButton(const QMessageBox *box, const QString &text) {
    const auto buttons = box->buttons();
    for (QAbstractButton *const button : buttons) {
        if (button->text() == text) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    QFAIL(qPrintable(QString::fromUtf8("no button ") + text));
}

inline QMessageBox::ButtonRole roleOf(const QMessageBox *box, const QString &text) {
    const auto buttons = box->buttons();
    for (QAbstractButton *const button : buttons) {
        if (button->text() == text) {
            return box->buttonRole(button);
        }
    }
    return QMessageBox::InvalidRole;
}

// Types the path into a panel for saving and confirms it.
inline void confirmSaving(QFileDialog *panel, const QString &path) {
    auto *const name = panel->findChild<QLineEdit *>(QString::fromUtf8("fileNameEdit"));
    name->setText(path);
    QTest::keyClick(name, Qt::Key_Return);
}

} // namespace fennick::test
