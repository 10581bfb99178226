#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "ZephanShared/widgets/lineedit.h"
#include "ZephanShared/widgets/suggestionbox.h"
#include "ZephanShared/widgets/textedit.h"
#include "singleclickstyle.h"
#include "support/workstation.h"

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>
#include <QTreeWidget>

namespace {

PersonModel person(const char *first, const char *middle, const char *last, const char *id)
{
    PersonModel model(new PersonModelData);
    model->firstName = QString::fromUtf8(first);
    model->middleName = QString::fromUtf8(middle);
    model->lastName = QString::fromUtf8(last);
    model->personalId = QString::fromUtf8(id);
    model->personCode = QStringLiteral("code of %1").arg(model->lastName);
    model->birthDate = QDate(1980, 2, 3);
    model->gender = 2;
    model->ethnicGroup = 3;
    return model;
}

/// A few persons in memory, found by the beginning of their names.
class Persons : public QObject
{
    Q_OBJECT

public:
    QList<PersonModel> all = {
        person("Aino", "", "Virtanen", "010280-123A"), person("Aatos", "Olavi", "Korhonen", "020280-123B"),
        person("Anna", "", "Mäkinen", "030280-123C"), person("Antti", "", "Nieminen", "040280-123D"),
        person("Arvo", "", "Laine", "050280-123E")};
    QList<SearchModel> searches;

public slots:
    void search(SearchModel model)
    {
        searches.append(model);
        QList<PersonModel> found;
        for (const PersonModel &candidate : qAsConst(all)) {
            bool fits = true;
            const QMap<int, QString> parameters = model->searchParameters();
            for (auto it = parameters.cbegin(); it != parameters.cend(); ++it)
                fits = fits && (it.key() >= SearchModelData::Gender ||
                                candidate->text(it.key()).startsWith(it.value(), Qt::CaseInsensitive));
            if (fits && found.size() < model->searchMaxAmount())
                found.append(candidate);
        }
        model->setPersonSearchResults(ZephanErrors::kNone, found);
    }
};

class Field : public QWidget
{
public:
    explicit Field(int key, bool search = true)
    {
        edit = new LineEdit(key, search, this);
        QObject::connect(edit, &LineEdit::searchWithModel, &persons, &Persons::search);
        resize(400, 40);
        show();
        QApplication::setActiveWindow(this);
    }

    QTreeWidget *popup() const
    {
        return edit->suggestionBox()->popup();
    }
    void type(const QString &keys) const
    {
        QTest::keyClicks(edit->lineEdit(), keys);
    }
    QString cell(int row, int column) const
    {
        return popup()->topLevelItem(row)->text(column);
    }

    LineEdit *edit;
    Persons persons;
};

}  // namespace

class TestPersonFields : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void typingSuggestsAtMostFourPersons();
    void detailsAreTheNameInItsOrder();
    void detailsCanBeSwitchedOff();
    void choosingASuggestionSelectsThePerson();
    void typingGoesOnWhileTheSuggestionsAreShown();
    void keysThatLeaveTheTextCloseTheSuggestions_data();
    void keysThatLeaveTheTextCloseTheSuggestions();
    void aClickThatAlsoActivatesSelectsThePersonOnce();
    void emptyTextHidesTheSuggestions();
    void withoutTheSearchFlagNothingIsSearched();
    void textOfEachKey_data();
    void textOfEachKey();
    void otherKeysAreNotSearched_data();
    void otherKeysAreNotSearched();
    void anOutdatedSearchShowsNothing();
    void suggestionsStandBelowTheField_data();
    void suggestionsStandBelowTheField();
    void failedSearchChangesNothing();
    void genderAndEthnicWords();
    void textEditGrowsWithItsLines();
    void textEditIsAsHighAsItsLines_data();
    void textEditIsAsHighAsItsLines();

private:
    Workstation m_workstation;
};

void TestPersonFields::initTestCase()
{
    SettingsHandler::getInstance()->changeSettingsFile(m_workstation.dataDirectory() +
                                                       QLatin1String(kSettingsFileName));
}

void TestPersonFields::typingSuggestsAtMostFourPersons()
{
    const Field field(SearchModelData::FirstName);
    field.type(QStringLiteral("a"));
    QVERIFY(field.popup()->isVisible());
    QCOMPARE(field.popup()->topLevelItemCount(), 4);
    QCOMPARE(field.persons.searches.last()->searchMaxAmount(), 4);
    QCOMPARE(field.persons.searches.last()->personSearchOrder(), int(SearchModelData::FirstName));
    QCOMPARE(field.cell(0, 0), QStringLiteral("Aino"));
    QCOMPARE(field.popup()->width(), field.edit->lineEdit()->width());
    QCOMPARE(field.popup()->height(), field.popup()->sizeHintForRow(0) * 4 + 3);
    field.popup()->hide();
}

void TestPersonFields::detailsAreTheNameInItsOrder()
{
    const Field field(SearchModelData::PersonalId);
    field.type(QStringLiteral("02"));
    QCOMPARE(field.cell(0, 0), QStringLiteral("020280-123B"));
    QCOMPARE(field.cell(0, 1), QStringLiteral("(Korhonen Aatos)"));
    SettingsHandler::getInstance()->setValue(QLatin1String(SettingsKeys::kPersonNameFieldOrder),
                                             QVariantList{1, 2, 3});
    field.edit->textChanged();
    QCOMPARE(field.cell(0, 1), QStringLiteral("(Aatos Olavi Korhonen)"));
    // A list of one comes from a file as a text.
    SettingsHandler::getInstance()->setValue(QLatin1String(SettingsKeys::kPersonNameFieldOrder),
                                             QStringLiteral("3"));
    field.edit->textChanged();
    QCOMPARE(field.cell(0, 1), QStringLiteral("(Korhonen)"));
    SettingsHandler::getInstance()->setValue(QLatin1String(SettingsKeys::kPersonNameFieldOrder),
                                             QVariantList{3, 1, 4});
    field.popup()->hide();
}

void TestPersonFields::detailsCanBeSwitchedOff()
{
    SettingsHandler::getInstance()->setValue(QLatin1String(SettingsKeys::kShowPersonDetailsSuggestion),
                                             false);
    const Field field(SearchModelData::FirstName);
    field.type(QStringLiteral("a"));
    QCOMPARE(field.cell(0, 1), QString());
    SettingsHandler::getInstance()->setValue(QLatin1String(SettingsKeys::kShowPersonDetailsSuggestion), true);
    field.popup()->hide();
}

void TestPersonFields::choosingASuggestionSelectsThePerson()
{
    const Field field(SearchModelData::LastName);
    QSignalSpy selected(field.edit, &LineEdit::personSelected);
    QSignalSpy changed(field.edit, &LineEdit::contentChanged);
    field.type(QStringLiteral("n"));
    const int changesWhileTyping = changed.count();
    QTreeWidgetItem *item = field.popup()->topLevelItem(0);
    QTest::mouseClick(field.popup()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      field.popup()->visualItemRect(item).center());
    QTRY_COMPARE(selected.count(), 1);
    QCOMPARE(selected.first().first().value<PersonModel>()->firstName, QStringLiteral("Antti"));
    QCOMPARE(field.edit->value(), QStringLiteral("Nieminen"));
    QCOMPARE(changed.count(), changesWhileTyping + 1);
    QVERIFY(!field.popup()->isVisible());
}

/// An open popup receives all keys.
void TestPersonFields::typingGoesOnWhileTheSuggestionsAreShown()
{
    const Field field(SearchModelData::FirstName);
    QSignalSpy selected(field.edit, &LineEdit::personSelected);
    field.type(QStringLiteral("a"));
    QVERIFY(field.popup()->isVisible());
    QTest::keyClicks(field.popup(), QStringLiteral("nn"));
    QCOMPARE(field.edit->value(), QStringLiteral("ann"));
    QCOMPARE(field.popup()->topLevelItemCount(), 1);
    QTest::keyClick(field.popup(), Qt::Key_Backspace);
    QCOMPARE(field.edit->value(), QStringLiteral("an"));
    QCOMPARE(field.popup()->topLevelItemCount(), 2);

    QTest::keyClick(field.popup(), Qt::Key_Down);
    QTest::keyClick(field.popup(), Qt::Key_Down);
    QTest::keyClick(field.popup(), Qt::Key_Return);
    QVERIFY(!field.popup()->isVisible());
    QCOMPARE(field.edit->value(), QStringLiteral("Antti"));
    QCOMPARE(selected.count(), 1);

    field.edit->lineEdit()->clear();
    field.type(QStringLiteral("a"));
    QVERIFY(field.popup()->isVisible());
    QTest::keyClick(field.popup(), Qt::Key_Escape);
    QVERIFY(!field.popup()->isVisible());
    QCOMPARE(field.edit->value(), QStringLiteral("a"));
}

void TestPersonFields::keysThatLeaveTheTextCloseTheSuggestions_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("returns");
    QTest::addColumn<bool>("isLeft");
    QTest::newRow("Tab goes on to the next field") << int(Qt::Key_Tab) << 0 << true;
    QTest::newRow("Backtab goes back to the field before") << int(Qt::Key_Backtab) << 0 << true;
    QTest::newRow("Return without a chosen row is for the text") << int(Qt::Key_Return) << 1 << false;
    QTest::newRow("Enter without a chosen row is for the text") << int(Qt::Key_Enter) << 1 << false;
}

void TestPersonFields::keysThatLeaveTheTextCloseTheSuggestions()
{
    QFETCH(int, key);
    QFETCH(int, returns);
    QFETCH(bool, isLeft);
    const Field field(SearchModelData::FirstName);
    auto *other = new QLineEdit;
    field.edit->addWidget(other);
    other->show();
    QSignalSpy returned(field.edit->lineEdit(), &QLineEdit::returnPressed);
    field.edit->lineEdit()->setFocus();
    field.type(QStringLiteral("a"));
    QVERIFY(field.popup()->isVisible());
    QTest::keyClick(field.popup(), Qt::Key(key));
    QVERIFY(!field.popup()->isVisible());
    QCOMPARE(other->hasFocus(), isLeft);
    QCOMPARE(returned.count(), returns);
    QCOMPARE(field.edit->value(), QStringLiteral("a"));
}

void TestPersonFields::aClickThatAlsoActivatesSelectsThePersonOnce()
{
    const Field field(SearchModelData::FirstName);
    SingleClickStyle style;
    field.popup()->setStyle(&style);
    QSignalSpy activated(field.popup(), &QTreeWidget::activated);
    QSignalSpy selected(field.edit, &LineEdit::personSelected);
    field.type(QStringLiteral("a"));
    QTest::mouseClick(field.popup()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      field.popup()->visualItemRect(field.popup()->topLevelItem(1)).center());
    QCOMPARE(activated.count(), 1);
    QCOMPARE(selected.count(), 1);
    QCOMPARE(field.edit->value(), QStringLiteral("Aatos"));
    field.popup()->setStyle(nullptr);
}

void TestPersonFields::emptyTextHidesTheSuggestions()
{
    const Field field(SearchModelData::FirstName);
    field.type(QStringLiteral("a"));
    QVERIFY(field.popup()->isVisible());
    const int searches = field.persons.searches.size();
    QTest::keyClick(field.edit->lineEdit(), Qt::Key_Backspace);
    QVERIFY(!field.popup()->isVisible());
    QCOMPARE(field.persons.searches.size(), searches);
}

void TestPersonFields::withoutTheSearchFlagNothingIsSearched()
{
    const Field field(SearchModelData::FirstName, false);
    field.type(QStringLiteral("a"));
    QVERIFY(field.persons.searches.isEmpty());
}

void TestPersonFields::textOfEachKey_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("text");
    QTest::newRow("first name") << int(SearchModelData::FirstName) << QStringLiteral("Aatos");
    QTest::newRow("middle name") << int(SearchModelData::MiddleName) << QStringLiteral("Olavi");
    QTest::newRow("last name") << int(SearchModelData::LastName) << QStringLiteral("Korhonen");
    QTest::newRow("personal id") << int(SearchModelData::PersonalId) << QStringLiteral("020280-123B");
    QTest::newRow("person code") << int(SearchModelData::PersonCode) << QStringLiteral("code of Korhonen");
    QTest::newRow("birth date in the date format")
        << int(SearchModelData::Birthdate) << QStringLiteral("03.02.1980");
    QTest::newRow("gender as a word") << int(SearchModelData::Gender) << QStringLiteral("female");
    QTest::newRow("ethnic group as a word")
        << int(SearchModelData::EthnicGroup) << QStringLiteral("Caucasian");
    QTest::newRow("the flag for deleted persons has no text")
        << int(SearchModelData::ShowDeleted) << QString();
}

void TestPersonFields::textOfEachKey()
{
    QFETCH(int, key);
    QFETCH(QString, text);
    Field field(key);
    QObject::disconnect(field.edit, &LineEdit::searchWithModel, &field.persons, &Persons::search);
    QSignalSpy searched(field.edit, &LineEdit::searchWithModel);
    field.type(QStringLiteral("x"));
    QCOMPARE(searched.count(), 1);
    searched.first().first().value<SearchModel>()->setPersonSearchResults(0, {field.persons.all.at(1)});
    QCOMPARE(field.cell(0, 0), text);
    QCOMPARE(field.cell(0, 1), QStringLiteral("(Korhonen Aatos)"));
    field.popup()->hide();
}

void TestPersonFields::otherKeysAreNotSearched_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("everything") << int(SearchModelData::SearchEverything);
    QTest::newRow("the number behind the last key") << 10;
    QTest::newRow("fields of the site's own") << int(SearchModelData::CustomFields);
    QTest::newRow("a negative number") << -1;
}

void TestPersonFields::otherKeysAreNotSearched()
{
    QFETCH(int, key);
    const Field field(key);
    field.edit->suggestionBox()->setSelectionItems({QStringLiteral("of before")}, {});
    QVERIFY(field.popup()->isVisible());
    field.type(QStringLiteral("a"));
    QVERIFY(field.persons.searches.isEmpty());
    QVERIFY(!field.popup()->isVisible());
}

void TestPersonFields::anOutdatedSearchShowsNothing()
{
    Field field(SearchModelData::FirstName);
    QObject::disconnect(field.edit, &LineEdit::searchWithModel, &field.persons, &Persons::search);
    QSignalSpy searched(field.edit, &LineEdit::searchWithModel);
    field.type(QStringLiteral("a"));
    const auto outdated = searched.first().first().value<SearchModel>();
    QTest::keyClick(field.edit->lineEdit(), Qt::Key_Backspace);
    outdated->setPersonSearchResults(0, field.persons.all);
    QVERIFY(!field.popup()->isVisible());
}

void TestPersonFields::suggestionsStandBelowTheField_data()
{
    QTest::addColumn<QStringList>("details");
    QTest::addColumn<QString>("shown");
    QTest::newRow("as many details as results are shown in parentheses")
        << QStringList{QStringLiteral("x"), QStringLiteral("y")} << "(y)";
    QTest::newRow("fewer details than results are not shown") << QStringList{QStringLiteral("x")} << "";
    QTest::newRow("more details than results are not shown")
        << QStringList{QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z")} << "";
}

void TestPersonFields::suggestionsStandBelowTheField()
{
    QFETCH(QStringList, details);
    const Field field(SearchModelData::FirstName);
    const QLineEdit *edit = field.edit->lineEdit();
    field.edit->suggestionBox()->setSelectionItems({QStringLiteral("a"), QStringLiteral("b")}, details);
    QVERIFY(field.popup()->isVisible());
    QCOMPARE(field.cell(1, 0), QStringLiteral("b"));
    QTEST(field.cell(1, 1), "shown");
    if (!field.cell(1, 1).isEmpty())
        QVERIFY(field.popup()->topLevelItem(1)->textAlignment(1) & Qt::AlignRight);
    QCOMPARE(field.popup()->height(), field.popup()->sizeHintForRow(0) * 2 + 3);
    // The platform of the tests adds a frame of two pixels to every window.
    const QPoint place = edit->mapToGlobal(edit->rect().bottomLeft() + QPoint(0, 1));
    QVERIFY((field.popup()->pos() - place).manhattanLength() <= 4);
    field.popup()->hide();
}

void TestPersonFields::failedSearchChangesNothing()
{
    Field field(SearchModelData::FirstName);
    QObject::disconnect(field.edit, &LineEdit::searchWithModel, &field.persons, &Persons::search);
    QSignalSpy searched(field.edit, &LineEdit::searchWithModel);
    field.type(QStringLiteral("x"));
    searched.first().first().value<SearchModel>()->setPersonSearchResults(7, field.persons.all);
    QVERIFY(!field.popup()->isVisible());
}

void TestPersonFields::genderAndEthnicWords()
{
    const FieldEdit field;
    QCOMPARE(field.genderText(1), QStringLiteral("male"));
    QCOMPARE(field.genderText(2), QStringLiteral("female"));
    QCOMPARE(field.genderText(0), QStringLiteral("undefined"));
    const QStringList groups = {
        QStringLiteral("African American"),  QStringLiteral("Asian"),
        QStringLiteral("Caucasian"),         QStringLiteral("Hispanic"),
        QStringLiteral("Hong Kong Chinese"), QStringLiteral("Japanese American"),
        QStringLiteral("Polynesian"),        QStringLiteral("North Indian and Pakistani"),
        QStringLiteral("South Indian"),      QStringLiteral("African Descent"),
        QStringLiteral("Japanese"),          QStringLiteral("Mexican American"),
        QStringLiteral("North East Asian"),  QStringLiteral("South East Asian"),
        QStringLiteral("Mixed / Other")};
    for (int group = 0; group < groups.size(); ++group)
        QCOMPARE(field.ethnicText(group + 1), groups.at(group));
    for (const int none : {-1, 0, 16})
        QCOMPARE(field.ethnicText(none), QStringLiteral("No Information"));
}

void TestPersonFields::textEditGrowsWithItsLines()
{
    QWidget window;
    TextEdit text(&window);
    window.show();
    QSignalSpy changed(&text, &TextEdit::contentChanged);
    const int smallest = text.textEdit()->height();
    text.textEdit()->setPlainText(QString(5, QLatin1Char('\n')));
    QTRY_VERIFY(text.textEdit()->height() > smallest);
    QVERIFY(changed.count() > 0);
    text.textEdit()->setPlainText(QString(13, QLatin1Char('\n')));
    const int high = text.textEdit()->height();
    text.textEdit()->setPlainText(QString(100, QLatin1Char('\n')));
    const int highest = text.textEdit()->height();
    QVERIFY(highest >= high);
    text.textEdit()->setPlainText(QString(1000, QLatin1Char('\n')));
    QCOMPARE(text.textEdit()->height(), highest);
    text.textEdit()->clear();
    QTRY_COMPARE(text.textEdit()->height(), smallest);
}

void TestPersonFields::textEditIsAsHighAsItsLines_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("lines");
    const auto row = [](const char *name, int written, int lines) {
        QTest::newRow(name)
            << QStringList(QVector<QString>(written, QStringLiteral("line")).toList()).join(QLatin1Char('\n'))
            << lines;
    };
    row("one line has room for two", 1, 2);
    row("two lines", 2, 2);
    row("three lines", 3, 3);
    row("fourteen lines", 14, 14);
    row("fifteen lines", 15, 15);
    row("more lines are scrolled", 16, 15);
    QTest::newRow("a long line is broken") << QStringLiteral("word ").repeated(30).trimmed() << -1;
}

void TestPersonFields::textEditIsAsHighAsItsLines()
{
    QFETCH(QString, text);
    QFETCH(int, lines);
    QWidget window;
    TextEdit field(&window);
    window.resize(300, 600);
    window.show();
    QTextEdit *edit = field.textEdit();
    edit->setPlainText(text);
    if (lines < 0)
        lines = edit->document()->firstBlock().layout()->lineCount();
    QVERIFY(lines > 1);
    const int frame = edit->frameWidth() + edit->contentsMargins().top();
    QTRY_COMPARE(edit->height(), lines * edit->fontMetrics().lineSpacing() + 2 * frame + 8);
}

QTEST_MAIN(TestPersonFields)
#include "test_personfields.moc"
