#pragma once

#include <QSemaphore>

namespace fennick::engine {

// To be held while a document is read. A scan of 35 megapixels takes 140 MB while it is decoded: more of them
// at once would crowd out other programs.
inline QSemaphore documentsAtOnce(2);

} // namespace fennick::engine
