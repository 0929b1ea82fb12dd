#pragma once

#include "ui/settings_section.h"

class QLineEdit;

namespace fennick {

class CaptionLabel;
class SettingsStore;

// The extraction service's API key, stored only on request, and its model, stored on every keystroke.
class SettingsGeminiSection : public SettingsSection {
    Q_OBJECT

public:
    explicit SettingsGeminiSection(SettingsStore *settings, QWidget *parent = nullptr);

    // Puts the stored key, or nothing, into the field in place of what stands there.
    void loadKey();

private:
    void layOut();
    void saveKey();
    void showModel();

    SettingsStore *settings_;
    QLineEdit *key_;
    CaptionLabel *keySaved_;
    QLineEdit *model_;
    bool isKeyLoaded_ = false;
};

} // namespace fennick
