#pragma once

#include <QMenu>

class QActionGroup;

namespace fennick {

class SettingsStore;

// Who reads the receipts from the next scan on: the Gemini service, the engine on this computer, or another
// service that the preferences file names, which can be chosen but not edited here. Reads the file each time
// it opens. Owned by the main window.
class ReadWithMenu : public QMenu {
    Q_OBJECT

public:
    ReadWithMenu(SettingsStore *settings, QWidget *parent);

private:
    QAction *addReader(const QString &objectName, const QString &text, const QString &tip);
    void choose(const QString &address);
    void showChoice();
    void showOther(const QString &address);

    SettingsStore *settings_;
    QActionGroup *readers_;
    QAction *gemini_;
    QAction *thisComputer_;
    QAction *other_;
    QString otherAddress_; // as the file had it last, so that it can be chosen again
};

} // namespace fennick
