#include "support/userinput.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QTest>

void chooseEntry(QComboBox *combo, int index)
{
    combo->showPopup();
    QAbstractItemView *list = combo->view();
    const QModelIndex entry = list->model()->index(index, combo->modelColumn(), combo->rootModelIndex());
    list->scrollTo(entry);
    const QPoint middle = list->visualRect(entry).center();
    // The list takes a release for the end of the click that opened it until the mouse has moved over it.
    QTest::mouseMove(list->viewport(), middle);
    list->setCurrentIndex(entry);
    QTest::keyClick(list, Qt::Key_Return);
}
