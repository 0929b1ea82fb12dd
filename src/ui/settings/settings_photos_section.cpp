#include "ui/settings/settings_photos_section.h"

#include "pipeline/photos_importer.h"
#include "settings/settings_store.h"
#include "ui/widgets/caption_label.h"
#include "ui/widgets/switch_control.h"

#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace fennick {

using namespace Qt::StringLiterals;

using Status = PhotoPermission::Status;

namespace {

constexpr int statusSpacing = 6;
constexpr int buttonPadding = 20;

} // namespace

SettingsPhotosSection::SettingsPhotosSection(SettingsStore *settings, QWidget *parent)
    : SettingsSection(tr("Photos Export"), parent)
    , settings_(settings)
    , addToPhotos_(new SwitchControl(tr("Add receipts to Photos"), this))
    , groupIntoAlbum_(new SwitchControl(tr("Group into a dated album"), this))
    , granted_(new CaptionLabel(tr("Photos access granted"), Tint::success, Symbol::done, this))
    , denied_(new CaptionLabel(tr("Photos access denied — enable in System Settings ▸ Privacy"),
                               Tint::failure, Symbol::refused, this))
    , grant_(new QPushButton(tr("Grant Photos Access"), this))
    , isExportOn_(settings->addToPhotos()) {
    setObjectName(u"photosSection"_s);
    addToPhotos_->setObjectName(u"addToPhotos"_s);
    groupIntoAlbum_->setObjectName(u"groupIntoAlbum"_s);
    granted_->setObjectName(u"photosGranted"_s);
    denied_->setObjectName(u"photosDenied"_s);
    for (CaptionLabel *const label : {granted_, denied_}) {
        label->setWordWrap(true);
    }
    grant_->setObjectName(u"grantPhotosAccess"_s);
    grant_->setAccessibleName(grant_->text());
    grant_->setMinimumWidth(grant_->sizeHint().width() + buttonPadding);
    layOut();
    connect(addToPhotos_, &SwitchControl::toggled, settings, &SettingsStore::setAddToPhotos);
    connect(groupIntoAlbum_, &SwitchControl::toggled, settings, &SettingsStore::setGroupIntoAlbum);
    connect(grant_, &QPushButton::clicked, this, &SettingsPhotosSection::requestAccess);
    connect(settings, &SettingsStore::changed, this, &SettingsPhotosSection::showSettings);
    showSettings();
    showStatus();
}

void SettingsPhotosSection::layOut() {
    addSwitch(addToPhotos_);
    addExplanation(
        tr("Converts each receipt to JPEG and adds it to Photos, so iCloud syncs it to your iPhone for "
           "Workday's mobile Scan Receipt. Each photo is named after the receipt."));
    addSwitch(groupIntoAlbum_);
    addExplanation(tr("Everything you process in one sitting goes into an album named “Expenses: "
                      "<today's date>”, which also syncs to your iPhone."));
    rows()->addSpacing(statusSpacing);
    rows()->addWidget(granted_);
    rows()->addWidget(denied_);
    rows()->addWidget(grant_, 0, Qt::AlignLeading);
}

void SettingsPhotosSection::showSettings() {
    const bool isOn = settings_->addToPhotos();
    addToPhotos_->showValue(isOn);
    groupIntoAlbum_->showValue(settings_->groupIntoAlbum());
    groupIntoAlbum_->setEnabled(isOn);
    const bool wasOn = std::exchange(isExportOn_, isOn);
    if (isOn && !wasOn) {
        requestAccess();
    }
}

void SettingsPhotosSection::requestAccess() {
    QCoro::connect(PhotosImporter::requestAccess(), this, [this] { showStatus(); });
}

void SettingsPhotosSection::showStatus() {
    const Status status = PhotoPermission::status();
    granted_->setVisible(status == Status::authorized || status == Status::limited);
    denied_->setVisible(status == Status::denied || status == Status::restricted);
    grant_->setVisible(status == Status::notDetermined);
}

} // namespace fennick
