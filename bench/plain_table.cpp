// plain_table: the least that a program with a list is: one window, one table. What Fennick's start and
// memory are compared with.

#include <QApplication>
#include <QMainWindow>
#include <QTableWidget>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[]) {
    const QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle(u"Plain table"_s);
    auto *const table = new QTableWidget(0, 8, &window);
    window.setCentralWidget(table);
    window.resize(900, 560);
    window.show();
    return QApplication::exec();
}
