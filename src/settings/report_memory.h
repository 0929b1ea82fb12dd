#pragma once

#include "platform/user_defaults.h"

#include <QString>

#include <optional>

namespace fennick {

// The name that stands on reports. It has a file of its own because it is not a preference. Main thread only.
class ReportMemory {
public:
    ReportMemory();

    // Absent until the user was asked; empty if reports bear no name.
    [[nodiscard]] std::optional<QString> name() const;
    void setName(const QString &name);

private:
    UserDefaults defaults_;
};

} // namespace fennick
