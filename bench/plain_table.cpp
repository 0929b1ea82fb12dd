// plain_table: the least that a program with a list is: one window, one table. What Fennick's start and
// memory are compared with.

#include <QApplication>
#include <QMainWindow>
#include <QTableWidget>

int main(int argc, char *argv[]) {
    const QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Plain table"));
    auto *const table = new QTableWidget(0, 8, &window);
    window.setCentralWidget(table);
    window.resize(900, 560);
    window.show();
    return QApplication::exec();
}
