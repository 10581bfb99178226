#include "ZephanShared/widgets/wrappingcheckbox.h"

#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

namespace {

const QString kLongText =
    QStringLiteral("Show a dialogue for the person who was found although only a single one matches");

}  // namespace

class TestWrappingCheckBox : public QObject
{
    Q_OBJECT

private slots:
    void aShortTextStaysOnOneLine();
    void aLongTextTakesMoreLinesWhereItIsNarrow();
    void aColumnGivesItTheHeightThatItNeeds();
    void aPressOnTheTextChecksIt();
};

void TestWrappingCheckBox::aShortTextStaysOnOneLine()
{
    WrappingCheckBox box;
    box.setText(QStringLiteral("Short"));
    QCheckBox plain(QStringLiteral("Short"));
    QCOMPARE(box.sizeHint(), plain.sizeHint());
    QCOMPARE(box.minimumSizeHint(), plain.sizeHint());
    QCOMPARE(box.heightForWidth(500), plain.sizeHint().height());
}

void TestWrappingCheckBox::aLongTextTakesMoreLinesWhereItIsNarrow()
{
    WrappingCheckBox box;
    box.setText(kLongText);
    QCheckBox plain(kLongText);
    const int whole = plain.sizeHint().width();
    const int lineHeight = box.fontMetrics().lineSpacing();
    QVERIFY(box.minimumSizeHint().width() < whole / 2);
    QCOMPARE(box.heightForWidth(whole), plain.sizeHint().height());
    QVERIFY(box.heightForWidth(whole - 1) >= 2 * lineHeight);
    QVERIFY(box.heightForWidth(whole / 3) >= 3 * lineHeight);
    QCOMPARE(box.text(), kLongText);
}

void TestWrappingCheckBox::aColumnGivesItTheHeightThatItNeeds()
{
    QWidget column;
    auto *layout = new QVBoxLayout(&column);
    auto *box = new WrappingCheckBox(&column);
    box->setText(kLongText);
    layout->addWidget(box);
    layout->addWidget(new QPushButton(QStringLiteral("Below"), &column));
    layout->addStretch();
    column.resize(box->minimumSizeHint().width() + 40, 400);
    column.show();
    QVERIFY(QTest::qWaitForWindowExposed(&column));
    QCOMPARE(box->height(), box->heightForWidth(box->width()));
    QVERIFY(box->height() >= 2 * box->fontMetrics().lineSpacing());
}

void TestWrappingCheckBox::aPressOnTheTextChecksIt()
{
    WrappingCheckBox box;
    box.setText(kLongText);
    box.resize(box.minimumSizeHint().width(), box.heightForWidth(box.minimumSizeHint().width()));
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(40, box.height() / 2));
    QVERIFY(box.isChecked());
}

QTEST_MAIN(TestWrappingCheckBox)
#include "test_wrappingcheckbox.moc"
