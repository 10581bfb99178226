#include "Corvane/settings/fieldsettingsview.h"
#include "Corvane/settings/searchsettingsview.h"
#include "Corvane/settings/studysettingsview.h"
#include "fieldpages.h"
#include "settingsbench.h"
#include "settingstest.h"
#include "support/pluginfolder.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace FieldPages;
using namespace SettingsTest;

namespace {

// A page in the smallest window.
constexpr QSize kSmallestPage(796, 455);

constexpr int kTabHeight = 35;

constexpr int kSmallLetters = 10;  // pixels
constexpr int kUsualLetters = 12;
constexpr int kLargeLetters = 20;
constexpr int kHugeLetters = 24;

/// The area in which the whole page scrolls.
QScrollArea *pageArea(const QWidget &page)
{
    return qobject_cast<QScrollArea *>(page.layout()->itemAt(0)->widget());
}

QList<QFrame *> columns(const QWidget &page)
{
    QList<QFrame *> frames;
    for (QFrame *frame : page.findChildren<QFrame *>()) {
        if (frame->frameShape() == QFrame::StyledPanel && frame->metaObject() == &QFrame::staticMetaObject)
            frames.append(frame);
    }
    return frames;
}

bool standSideBySide(const QList<QFrame *> &frames)
{
    return frames.at(0)->y() == frames.at(1)->y() && frames.at(0)->geometry().right() < frames.at(1)->x();
}

bool standBelowEachOther(const QList<QFrame *> &frames)
{
    return frames.at(0)->x() == frames.at(1)->x() && frames.at(0)->geometry().bottom() < frames.at(1)->y();
}

bool scrollsSideways(const QWidget &page)
{
    return pageArea(page)->horizontalScrollBar()->maximum() > 0;
}

void showInSize(QWidget &page, QSize size)
{
    page.resize(size);
    page.show();
    page.activateWindow();
    if (!QTest::qWaitForWindowActive(&page))
        qFatal("The page does not show");
    QCoreApplication::sendPostedEvents();
}

}  // namespace

/// The pages for person and study fields and for searching with letters of all sizes.
class TestLargeLetters : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void noPageScrollsSideways_data();
    void noPageScrollsSideways();
    void columnsStandSideBySideWhereThereIsRoom();
    void columnsGoBelowEachOtherWhereThereIsNone();
    void theRoomThatABarTakesDoesNotKeepColumnsApart();
    void aNewFieldIsInSightBelowTheOtherColumn();
    void theTitlesOfGroupsAreNotCovered_data();
    void theTitlesOfGroupsAreNotCovered();
    void noTabCutsItsTwoLines_data();
    void noTabCutsItsTwoLines();

private:
    void useLetters(int pixels);

    Workstation m_workstation;
    QFont m_font;
};

void TestLargeLetters::init()
{
    useEmptySettings(m_workstation);
    setStored(kCustom, QStringLiteral("1:Badge=0:true,2:Employer=1:false"));
    m_font = QApplication::font();
}

void TestLargeLetters::cleanup()
{
    QApplication::setFont(m_font);
}

void TestLargeLetters::useLetters(int pixels)
{
    QFont font = m_font;
    font.setPixelSize(pixels);
    QApplication::setFont(font);
}

void TestLargeLetters::noPageScrollsSideways_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("hasPlugins");
    QTest::addColumn<int>("pixels");

    for (const int pixels : {kUsualLetters, kLargeLetters}) {
        for (const char *name : {"Person fields", "Search", "Study fields"}) {
            QTest::addRow("%s with letters of %d", name, pixels) << name << true << pixels;
            QTest::addRow("%s with letters of %d, without plug-ins", name, pixels) << name << false << pixels;
        }
    }
    QTest::addRow("Study fields with huge letters, without plug-ins")
        << "Study fields" << false << kHugeLetters;
}

void TestLargeLetters::noPageScrollsSideways()
{
    QFETCH(QString, name);
    QFETCH(bool, hasPlugins);
    QFETCH(int, pixels);
    PluginFolder folder;
    QVERIFY(!hasPlugins || folder.addSamples());
    useLetters(pixels);
    std::unique_ptr<QWidget> page;
    if (name == QLatin1String("Person fields"))
        page = std::make_unique<FieldSettingsView>();
    else if (name == QLatin1String("Search"))
        page = std::make_unique<SearchSettingsView>();
    else
        page = std::make_unique<StudySettingsView>(m_workstation.dataDirectory());
    showInSize(*page, kSmallestPage);
    QTRY_VERIFY(!scrollsSideways(*page));
    // Nothing is cut off instead.
    for (const QLabel *label : page->findChildren<QLabel *>()) {
        if (label->isVisible() && !label->wordWrap())
            QVERIFY2(label->width() >= label->sizeHint().width(), qPrintable(label->text()));
    }
    if (!hasPlugins && name == QLatin1String("Study fields")) {
        const auto *notice = child<QLabel>(*page, "no_study_plugins");
        QVERIFY(notice->height() >= notice->heightForWidth(notice->width()));
    }
}

void TestLargeLetters::columnsStandSideBySideWhereThereIsRoom()
{
    useLetters(kUsualLetters);
    FieldSettingsView page;
    showInSize(page, kSmallestPage);
    QCOMPARE(columns(page).size(), 2);
    QTRY_VERIFY(standSideBySide(columns(page)));
}

void TestLargeLetters::columnsGoBelowEachOtherWhereThereIsNone()
{
    useLetters(kHugeLetters);
    FieldSettingsView page;
    showInSize(page, kSmallestPage);
    QTRY_VERIFY(standBelowEachOther(columns(page)));
    for (const QFrame *frame : columns(page))
        QVERIFY(frame->width() >= 362 && frame->height() >= 410);

    page.resize(1600, 600);
    QTRY_VERIFY(standSideBySide(columns(page)));
    page.resize(kSmallestPage);
    QTRY_VERIFY(standBelowEachOther(columns(page)));
}

void TestLargeLetters::theRoomThatABarTakesDoesNotKeepColumnsApart()
{
    useLetters(kLargeLetters);
    FieldSettingsView page;
    showInSize(page, kSmallestPage);
    QTRY_VERIFY(standBelowEachOther(columns(page)));

    // Just as wide as both columns, so that there is no room for a bar beside them.
    const QMargins margins = columns(page).first()->parentWidget()->layout()->contentsMargins();
    int width = margins.left() + margins.right() + columns(page).first()->parentWidget()->layout()->spacing();
    for (const QFrame *frame : columns(page))
        width += frame->minimumSizeHint().width();
    page.resize(width, 700);
    QTRY_VERIFY(standSideBySide(columns(page)));
    QVERIFY(!scrollsSideways(page));
    page.resize(width, 300);
    QTRY_VERIFY(standBelowEachOther(columns(page)));
    QVERIFY(!scrollsSideways(page));
    page.resize(width, 700);
    QTRY_VERIFY(standSideBySide(columns(page)));
}

void TestLargeLetters::aNewFieldIsInSightBelowTheOtherColumn()
{
    useLetters(kHugeLetters);
    FieldSettingsView page;
    showInSize(page, kSmallestPage);
    QTRY_VERIFY(standBelowEachOther(columns(page)));
    QTest::mouseClick(child<QPushButton>(page, "add_custom_field"), Qt::LeftButton);
    const auto *name = rowPart(page, 2, kRowName);
    QVERIFY(name->hasFocus());
    QVERIFY(!name->visibleRegion().isEmpty());
}

void TestLargeLetters::theTitlesOfGroupsAreNotCovered_data()
{
    QTest::addColumn<int>("pixels");
    QTest::newRow("usual letters") << kUsualLetters;
    QTest::newRow("large letters") << kLargeLetters;
    QTest::newRow("huge letters") << kHugeLetters;
}

void TestLargeLetters::theTitlesOfGroupsAreNotCovered()
{
    QFETCH(int, pixels);
    useLetters(pixels);
    SearchSettingsView page;
    showInSize(page, kSmallestPage);
    constexpr int kTitleTop = 10;  // in the groups' style
    for (const QGroupBox *group : page.findChildren<QGroupBox *>()) {
        const int titleBottom = kTitleTop + group->fontMetrics().height();
        QVERIFY2(group->layout()->contentsRect().top() >= titleBottom, qPrintable(group->title()));
    }
}

void TestLargeLetters::noTabCutsItsTwoLines_data()
{
    QTest::addColumn<int>("pixels");
    QTest::addColumn<bool>("smaller");
    QTest::newRow("small letters stay as they are") << kSmallLetters << false;
    QTest::newRow("large letters become smaller") << kLargeLetters << true;
}

void TestLargeLetters::noTabCutsItsTwoLines()
{
    QFETCH(int, pixels);
    QFETCH(bool, smaller);
    useLetters(pixels);
    SettingsBench bench(m_workstation, kAllRights);
    const QTabBar *bar = child<QTabWidget>(bench.view(), "settings_tabs")->tabBar();
    const QString text = bar->tabText(bar->count() - 1);
    QCOMPARE(text.count(QLatin1Char('\n')), 1);
    const QRect room(0, 0, 1000, 1000);
    QVERIFY(bar->fontMetrics().boundingRect(room, Qt::AlignLeft, text).height() < kTabHeight);
    QCOMPARE(bar->fontInfo().pixelSize() < pixels, smaller);
}

QTEST_MAIN(TestLargeLetters)
#include "test_largeletters.moc"
