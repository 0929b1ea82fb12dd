#include "text/money_locale.h"

#include <QString>

namespace fennick {

QLocale moneyLocale() {
    for (const char *variable : {"LC_ALL", "LC_MONETARY", "LC_NUMERIC", "LANG"}) {
        const QString name = qEnvironmentVariable(variable);
        if (!name.isEmpty()) {
            return QLocale(name);
        }
    }
    return QLocale::system();
}

} // namespace fennick
