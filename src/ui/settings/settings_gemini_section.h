#pragma once

#include "ui/settings/settings_section.h"

#include <QFutureWatcher>

#include <optional>

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
