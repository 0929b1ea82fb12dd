#pragma once

#include "ui/settings/settings_section.h"

#include <QFutureWatcher>

#include <optional>

class QLineEdit;

namespace fennick {

class CaptionLabel;
class SettingsStore;

// The API key of the extraction service, stored when the user asks for it, and its model, stored on every
// keystroke.
class SettingsGeminiSection : public SettingsSection {
    Q_OBJECT

public:
    explicit SettingsGeminiSection(SettingsStore *settings, QWidget *parent = nullptr);

    // Replaces the content of the field by the stored key, or clears it if there is none.
    void loadKey();

private:
    void layOut();
    void showStoredKey();
    void saveKey();
    void showModel();

    SettingsStore *settings_;
    QLineEdit *key_;
    CaptionLabel *keySaved_;
    QLineEdit *model_;
    bool isKeyLoaded_ = false;
    // A watcher, since a continuation would run into a window that is gone when the store answers.
    QFutureWatcher<std::optional<QString>> storedKey_;
};

} // namespace fennick
