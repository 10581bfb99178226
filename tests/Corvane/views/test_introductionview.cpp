#include "Corvane/views/introductionview.h"
#include "Corvane/views/productlabel.h"
#include "ZephanShared/widgets/styleprinter.h"

#include <QApplication>
#include <QGridLayout>
#include <QKeySequence>
#include <QLabel>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QTranslator>

namespace {

const auto kSettings = QLatin1String("settings_button");
const auto kDatabase = QLatin1String("database_button");
const auto kAccess = QLatin1String("access_control_button");
const auto kAuditTrail = QLatin1String("audit_trail_button");

/// A language in which every text of the view has a mark.
class MarkingTranslator : public QTranslator
{
public:
    bool isEmpty() const override
    {
        return false;
    }

    QString translate(const char *context, const char *text, const char *, int) const override
    {
        return qstrcmp(context, "IntroductionView") == 0 ? QLatin1String("* ") + QLatin1String(text)
                                                         : QString();
    }
};

}  // namespace

class TestIntroductionView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void buttonsHaveTheirTextsAndStandInOneRow();
    void aClickEmitsTheButtonsSignalAlone_data();
    void aClickEmitsTheButtonsSignalAlone();
    void aKeyEmitsTheButtonsSignalOnce_data();
    void aKeyEmitsTheButtonsSignalOnce();
    void buttonsAreAsWideAsTheWidest_data();
    void buttonsAreAsWideAsTheWidest();
    void theDatabaseButtonCannotBeReached();
    void disablingIsRepeatableAndCanBeTakenBack_data();
    void disablingIsRepeatableAndCanBeTakenBack();
    void textsFollowTheLanguageButTheProductLabelDoesNot();
    void isHiddenUntilItIsShown();

    void productLabelScalesItsImageToTheWidth_data();
    void productLabelScalesItsImageToTheWidth();
    void productLabelWithoutImageShowsItsText();

private:
    QToolButton *button(const QString &name) const;

    std::unique_ptr<IntroductionView> m_view;
};

void TestIntroductionView::init()
{
    m_view = std::make_unique<IntroductionView>(nullptr, nullptr);
}

void TestIntroductionView::cleanup()
{
    m_view.reset();
}

QToolButton *TestIntroductionView::button(const QString &name) const
{
    return m_view->findChild<QToolButton *>(name);
}

void TestIntroductionView::buttonsHaveTheirTextsAndStandInOneRow()
{
    const QList<QPair<QString, QString>> expected = {
        {kSettings, QStringLiteral("Settings Management")},
        {kDatabase, QStringLiteral("Database Management")},
        {kAccess, QStringLiteral("Access Control Management")},
        {kAuditTrail, QStringLiteral("Audit Trail Viewer")},
    };
    const auto *grid = m_view->findChild<QGridLayout *>();
    int column = 1;
    for (const auto &entry : expected) {
        QToolButton *current = button(entry.first);
        QVERIFY2(current, qPrintable(entry.first));
        QCOMPARE(current->text(), entry.second);
        QCOMPARE(current->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
        QCOMPARE(current->iconSize(), QSize(144, 144));
        QCOMPARE(grid->itemAtPosition(0, column++)->widget(), current);
    }
    QCOMPARE(grid->columnStretch(0), 20);
    QCOMPARE(grid->columnStretch(6), 20);
}

void TestIntroductionView::aClickEmitsTheButtonsSignalAlone_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVector<int>>("counts");

    QTest::newRow("settings") << QString(kSettings) << QVector<int>({1, 0, 0, 0});
    QTest::newRow("access control") << QString(kAccess) << QVector<int>({0, 0, 1, 0});
    QTest::newRow("audit trail") << QString(kAuditTrail) << QVector<int>({0, 0, 0, 1});
}

void TestIntroductionView::aClickEmitsTheButtonsSignalAlone()
{
    QFETCH(QString, name);
    QFETCH(QVector<int>, counts);
    const QSignalSpy settings(m_view.get(), SIGNAL(settingsClicked()));
    const QSignalSpy database(m_view.get(), SIGNAL(databaseClicked()));
    const QSignalSpy access(m_view.get(), SIGNAL(accessClicked()));
    const QSignalSpy auditTrail(m_view.get(), SIGNAL(auditTrailClicked()));
    m_view->show();
    QTest::mouseClick(button(name), Qt::LeftButton);
    QCOMPARE(QVector<int>({settings.count(), database.count(), access.count(), auditTrail.count()}), counts);
}

void TestIntroductionView::aKeyEmitsTheButtonsSignalOnce_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<int>("key");

    const QList<QPair<QString, QByteArray>> buttons = {
        {kSettings, SIGNAL(settingsClicked())},
        {kAccess, SIGNAL(accessClicked())},
        {kAuditTrail, SIGNAL(auditTrailClicked())},
    };
    for (const auto &entry : buttons) {
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
            const QString row = entry.first + QLatin1String(" by ") + QKeySequence(key).toString();
            QTest::newRow(qPrintable(row)) << entry.first << entry.second << int(key);
        }
    }
}

void TestIntroductionView::aKeyEmitsTheButtonsSignalOnce()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, signal);
    QFETCH(int, key);
    const QSignalSpy clicked(m_view.get(), signal.constData());
    m_view->show();
    QTest::keyClick(button(name), static_cast<Qt::Key>(key));
    QCOMPARE(clicked.count(), 1);
}

void TestIntroductionView::buttonsAreAsWideAsTheWidest_data()
{
    QTest::addColumn<int>("letters");

    QTest::newRow("in usual letters") << 12;
    QTest::newRow("in large letters") << 15;
}

void TestIntroductionView::buttonsAreAsWideAsTheWidest()
{
    QFETCH(int, letters);
    const QFont usual = QApplication::font();
    const auto restore = qScopeGuard([&] { QApplication::setFont(usual); });
    QFont font = usual;
    font.setPixelSize(letters);
    QApplication::setFont(font);
    IntroductionView view(nullptr, nullptr);
    view.resize(780, 580);
    view.show();
    const auto width = [&view](const QString &name) {
        return view.findChild<QToolButton *>(name)->width();
    };
    QVERIFY(width(kAccess) > 152);
    QCOMPARE(width(kSettings), width(kAccess));
    QCOMPARE(width(kAuditTrail), width(kAccess));
    QCOMPARE(view.width(), 780);
}

void TestIntroductionView::theDatabaseButtonCannotBeReached()
{
    const QSignalSpy database(m_view.get(), SIGNAL(databaseClicked()));
    m_view->show();
    QToolButton *hidden = button(kDatabase);
    QVERIFY(!hidden->isVisible());
    QVERIFY(!hidden->isEnabled());
    QTest::mouseClick(hidden, Qt::LeftButton);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
        QTest::keyClick(hidden, key);
    QCOMPARE(database.count(), 0);
}

void TestIntroductionView::disablingIsRepeatableAndCanBeTakenBack_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("slot");

    QTest::newRow("access control") << QString(kAccess) << QByteArray("disableAccessControlView");
    QTest::newRow("audit trail") << QString(kAuditTrail) << QByteArray("disableAuditTrailView");
}

void TestIntroductionView::disablingIsRepeatableAndCanBeTakenBack()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, slot);
    const auto disable = [&](bool value) {
        return QMetaObject::invokeMethod(m_view.get(), slot.constData(), Q_ARG(bool, value));
    };
    QVERIFY(button(name)->isEnabled());
    QVERIFY(disable(true));
    QVERIFY(!button(name)->isEnabled());
    QVERIFY(disable(true));
    QVERIFY(!button(name)->isEnabled());
    QVERIFY(disable(false));
    QVERIFY(button(name)->isEnabled());
    QVERIFY(button(kSettings)->isEnabled());
}

void TestIntroductionView::textsFollowTheLanguageButTheProductLabelDoesNot()
{
    MarkingTranslator translator;
    QCoreApplication::installTranslator(&translator);
    QCoreApplication::processEvents();
    QCOMPARE(button(kSettings)->text(), QStringLiteral("* Settings Management"));
    QCOMPARE(button(kDatabase)->text(), QStringLiteral("* Database Management"));
    QCOMPARE(button(kAccess)->text(), QStringLiteral("* Access Control Management"));
    QCOMPARE(button(kAuditTrail)->text(), QStringLiteral("* Audit Trail Viewer"));
    QCOMPARE(m_view->findChild<QLabel *>(QStringLiteral("product_name"))->text(), QStringLiteral("Corvane"));
    QCoreApplication::removeTranslator(&translator);
    QCoreApplication::processEvents();
    QCOMPARE(button(kSettings)->text(), QStringLiteral("Settings Management"));
}

void TestIntroductionView::isHiddenUntilItIsShown()
{
    QWidget window;
    IntroductionView view(nullptr, &window);
    window.show();
    QVERIFY(!view.isVisible());
    view.show();
    QVERIFY(view.isVisible());
}

void TestIntroductionView::productLabelScalesItsImageToTheWidth_data()
{
    QTest::addColumn<QSize>("image");
    QTest::addColumn<QSize>("shown");

    QTest::newRow("a larger image is scaled down") << QSize(600, 100) << QSize(300, 50);
    QTest::newRow("a smaller image is scaled up") << QSize(100, 20) << QSize(300, 60);
}

void TestIntroductionView::productLabelScalesItsImageToTheWidth()
{
    QFETCH(QSize, image);
    QFETCH(QSize, shown);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("logo.png"));
    QImage file(image, QImage::Format_RGB32);
    file.fill(Qt::blue);
    QVERIFY(file.save(path));

    const ProductLabel label(path, QStringLiteral("Name"), 300, nullptr);
    const auto *picture = label.findChild<QLabel *>(QStringLiteral("product_image"));
    QCOMPARE(picture->pixmap(Qt::ReturnByValue).size(), shown);
    QCOMPARE(picture->minimumWidth(), 300);
    QCOMPARE(picture->maximumWidth(), 300);
    QCOMPARE(picture->alignment(), Qt::AlignCenter);
}

void TestIntroductionView::productLabelWithoutImageShowsItsText()
{
    const ProductLabel label(QStringLiteral(":/no/such/logo.png"), QStringLiteral("Name"), 300, nullptr);
    const auto *name = label.findChild<QLabel *>(QStringLiteral("product_name"));
    QCOMPARE(name->text(), QStringLiteral("Name"));
    QCOMPARE(name->styleSheet(), StylePrinter::titleLabelStyle());
    QCOMPARE(name->minimumWidth(), 300);
    QCOMPARE(name->maximumWidth(), 300);
    QVERIFY(label.findChild<QLabel *>(QStringLiteral("product_image"))->pixmap(Qt::ReturnByValue).isNull());
}

QTEST_MAIN(TestIntroductionView)
#include "test_introductionview.moc"
