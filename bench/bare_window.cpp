// The least that a program with a list can be: what the start of ours is measured beside.

#include <QApplication>
#include <QMainWindow>
#include <QStandardItemModel>
#include <QTableView>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QStandardItemModel model(0, 4);
  QTableView table;
  table.setModel(&model);
  QMainWindow window;
  window.setCentralWidget(&table);
  window.resize(1000, 700);
  window.show();
  return QApplication::exec();
}
