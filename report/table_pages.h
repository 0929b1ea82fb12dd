#pragma once

#include <QByteArray>
#include <QList>
#include <QRectF>

namespace fennick {

struct ReportDescription;

// The first pages of a report: its title, the table of receipts and the totals.
struct TablePages {
    struct Place {
        int page = 0;
        QRectF row; // in points, from the page's lower left corner; `top` is the smaller y
    };

    QByteArray pdf;
    QList<Place> rows; // of the receipts
};

inline constexpr QSizeF reportPageSize{595, 842}; // A4 in points

[[nodiscard]] TablePages drawnTable(const ReportDescription &description);

} // namespace fennick
