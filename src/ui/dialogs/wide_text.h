#pragma once

class QMessageBox;

namespace fennick {

// Makes the text of a box wide enough for a path, and its title bold: QMessageBox makes the text as narrow as
// it can, and the title a line of it.
void widenText(QMessageBox *box);

} // namespace fennick
