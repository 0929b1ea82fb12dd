#pragma once

#include "ui/settings/settings_section.h"

class QPushButton;

namespace fennick {

class CaptionLabel;
class SettingsStore;
class SwitchControl;

// Whether and how receipts are added to the photo library, and whether the user has granted permission.
class SettingsPhotosSection : public SettingsSection {
    Q_OBJECT

public:
    explicit SettingsPhotosSection(SettingsStore *settings, QWidget *parent = nullptr);

    // Shows whether permission is granted now.
    void showStatus();

private:
    void layOut();
    void showSettings();
    void requestAccess();

    SettingsStore *settings_;
    SwitchControl *addToPhotos_;
    SwitchControl *groupIntoAlbum_;
    CaptionLabel *granted_;
    CaptionLabel *denied_;
    QPushButton *grant_;
    bool isExportOn_; // as last seen: access is asked for only when it changes to on
};

} // namespace fennick
