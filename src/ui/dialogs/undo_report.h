#pragma once

#include <QStringList>

class QWidget;

namespace fennick {

// Shows what an undo could not do, a line for each file; many of them on request only. Does not wait for the
// user.
void showUndoReport(QWidget *parent, const QStringList &problems);

} // namespace fennick
