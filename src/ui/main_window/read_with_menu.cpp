#include "ui/main_window/read_with_menu.h"

#include "extraction/service_address.h"
#include "settings/preferences.h"
#include "settings/settings_store.h"
#include "text/display_text.h"

#include <QActionGroup>

namespace fennick {

using namespace Qt::StringLiterals;

ReadWithMenu::ReadWithMenu(SettingsStore *settings, QWidget *parent)
    //: The submenu in which one chooses who reads the receipts.
    : QMenu(tr("Read With"), parent)
    , settings_(settings)
    , readers_(new QActionGroup(this))
    , gemini_(addReader(u"readWithGemini"_s, tr("Gemini"),
                        tr("Receipts are sent to Google's Gemini service, with your API key.")))
    //: The receipts are read by this computer.
    , thisComputer_(addReader(u"readWithThisComputer"_s, tr("This Computer"),
                              tr("Receipts are read on this computer and sent nowhere. No key is needed.")))
    , other_(addReader(u"readWithOther"_s, QString(), QString())) {
    setObjectName(u"readWith"_s);
    setToolTipsVisible(true); // the window has no status bar
    other_->setVisible(false);
    connect(gemini_, &QAction::triggered, this, [this] { choose(Preferences::serviceAddress.standard); });
    connect(thisComputer_, &QAction::triggered, this, [this] { choose(onDeviceAddress); });
    connect(other_, &QAction::triggered, this, [this] { choose(otherAddress_); });
    connect(this, &QMenu::aboutToShow, this, &ReadWithMenu::showChoice);
    connect(settings, &SettingsStore::changed, this, &ReadWithMenu::showChoice);
    showChoice();
}

QAction *ReadWithMenu::addReader(const QString &objectName, const QString &text, const QString &tip) {
    QAction *const reader = addAction(text);
    reader->setObjectName(objectName);
    reader->setCheckable(true);
    reader->setStatusTip(tip);
    reader->setToolTip(tip);
    readers_->addAction(reader);
    return reader;
}

void ReadWithMenu::choose(const QString &address) {
    settings_->setServiceAddress(address);
}

void ReadWithMenu::showChoice() {
    const QString address = settings_->serviceAddress();
    if (isOnDevice(address)) {
        thisComputer_->setChecked(true);
    } else if (address == Preferences::serviceAddress.standard) {
        gemini_->setChecked(true);
    } else {
        showOther(address);
        other_->setChecked(true);
    }
}

void ReadWithMenu::showOther(const QString &address) {
    otherAddress_ = address;
    const QString host = displayText(hostOfService(address));
    //: %1 is an address on the Internet.
    const QString tip = tr("Receipts are sent to %1, with your API key.").arg(displayText(address));
    other_->setText(QString(host).replace(u'&', u"&&"_s));
    other_->setStatusTip(tip);
    other_->setToolTip(tip);
    other_->setVisible(true);
}

} // namespace fennick
