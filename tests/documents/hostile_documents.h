#pragma once

#include <QByteArray>

// Small files that would grow to hundreds of megabytes in a reader that trusts them.
namespace fennick::test {

// A whole PNG, RGBA, every pixel of it zero.
QByteArray blankPng(int width, int height);
// A few bytes whose header says so many pixels.
QByteArray pngClaiming(quint32 width, quint32 height);

// One page whose drawing instructions are `instructions`, packed `times` times.
QByteArray pdfDrawing(const QByteArray &instructions, int times);
QByteArray pdfWithPageBox(const QByteArray &box);
QByteArray pdfWithPages(int count);
// One page that draws a form ten times, which draws another one ten times, and so on.
QByteArray pdfOfForms(int levels);
// One page, so many levels down the page tree.
QByteArray pdfWithTreeOf(int levels);
// So many nodes of a page tree that share one list of as many children.
QByteArray pdfWithSharedChildren(int count);
// A PDF whose cross-reference stream, or whose objects' stream, unpacks to `size` bytes.
QByteArray pdfWithCrossReferences(qsizetype size);
QByteArray pdfWithObjectStream(qsizetype size);

} // namespace fennick::test
