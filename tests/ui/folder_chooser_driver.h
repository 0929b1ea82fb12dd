#pragma once

#include "support/conditions.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>

namespace fennick::test {

using Qt::StringLiterals::operator""_s;

// Runs an action on the folder chooser as soon as it is on the screen, from inside the modal event loop. A
// chooser that the action leaves open is cancelled after a while, so that a failing test ends.
class FolderChooserDriver {
public:
    explicit FolderChooserDriver(std::function<void(QFileDialog *)> action)
        : action_(std::move(action)) {
        QObject::connect(&look_, &QTimer::timeout, &look_, [this] { look(); });
        look_.start(2);
        sinceStart_.start();
    }

    bool hasRun() const { return hasRun_; }

    static QFileDialog *chooser() {
        const auto widgets = QApplication::topLevelWidgets();
        for (QWidget *const widget : widgets) {
            if (widget->objectName() == u"folderChooser" && widget->isVisible()) {
                return qobject_cast<QFileDialog *>(widget);
            }
        }
        return nullptr;
    }

    static QPushButton *button(QFileDialog *dialog, QDialogButtonBox::StandardButton which) {
        return dialog->findChild<QDialogButtonBox *>(u"buttonBox"_s)->button(which);
    }

    // In ASCII, which is what QTest can type.
    static void type(QFileDialog *dialog, const QString &path) {
        auto *const field = dialog->findChild<QLineEdit *>(u"fileNameEdit"_s);
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, path);
        // The list of completions would swallow the next click.
        if (QWidget *const completions = QApplication::activePopupWidget(); completions != nullptr) {
            completions->hide();
        }
    }

    static void confirm(QFileDialog *dialog) {
        QTest::mouseClick(button(dialog, QDialogButtonBox::Open), Qt::LeftButton);
    }

    static void cancel(QFileDialog *dialog) {
        QTest::mouseClick(button(dialog, QDialogButtonBox::Cancel), Qt::LeftButton);
    }

private:
    void look() {
        QFileDialog *const dialog = chooser();
        if (dialog == nullptr) {
            return;
        }
        if (!hasRun_ && dialog->isActiveWindow()) {
            hasRun_ = true;
            action_(dialog);
        } else if (sinceStart_.hasExpired(patience)) {
            dialog->reject();
        }
    }

    std::function<void(QFileDialog *)> action_;
    QTimer look_;
    QElapsedTimer sinceStart_;
    bool hasRun_ = false;
};

} // namespace fennick::test
