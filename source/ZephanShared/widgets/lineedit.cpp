#include "ZephanShared/widgets/lineedit.h"

#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "ZephanShared/toolkit/plaintime.h"
#include "ZephanShared/widgets/dateformathelper.h"
#include "ZephanShared/widgets/styleprinter.h"
#include "ZephanShared/widgets/suggestionbox.h"

#include <QLineEdit>

namespace {

constexpr int kMostSuggestions = 4;

bool isPersonKey(int searchKey)
{
    return searchKey >= SearchModelData::ShowDeleted && searchKey <= SearchModelData::EthnicGroup;
}

/// Last name, first name, and nothing for the third part.
QVariantList defaultNameOrder()
{
    return {3, 1, 4};
}

QList<int> nameFieldOrder()
{
    // A list of one field comes from a file as a text.
    const QStringList stored =
        SettingsHandler::getInstance()
            ->value(QLatin1String(SettingsKeys::kPersonNameFieldOrder), defaultNameOrder())
            .toStringList();
    QList<int> order;
    for (const QString &field : stored)
        order.append(field.toInt());
    return order;
}

}  // namespace

LineEdit::LineEdit(int searchKey, bool search, QWidget *parent)
    : FieldEdit(parent)
    , m_lineEdit(new QLineEdit)
    , m_suggestionBox(new SuggestionBox(m_lineEdit))
    , m_searchKey(searchKey)
    , m_search(search)
{
    m_lineEdit->setStyleSheet(StylePrinter::lineEditStyle(true, false, false));
    addWidget(m_lineEdit);
    connect(m_lineEdit, &QLineEdit::textEdited, this, &LineEdit::textChanged);
    connect(m_lineEdit, &QLineEdit::textEdited, this, &LineEdit::contentChanged);
    connect(m_suggestionBox, &SuggestionBox::suggestionSelected, this, &LineEdit::personIndexFromSuggestion);
}

QString LineEdit::value() const
{
    return m_lineEdit->text();
}

QLineEdit *LineEdit::lineEdit() const
{
    return m_lineEdit;
}

SuggestionBox *LineEdit::suggestionBox() const
{
    return m_suggestionBox;
}

void LineEdit::textChanged()
{
    if (!m_search)
        return;
    // A search that is still on its way may end unheard.
    if (m_searchModel)
        m_searchModel->disconnect(this);
    m_searchModel = SearchModel(new SearchModelData, &QObject::deleteLater);
    m_searchModel->setSearchMaxAmount(kMostSuggestions);
    connect(m_searchModel.data(), &SearchModelData::searchResultsUpdated, this, &LineEdit::searchCompleted);

    const QString text = m_lineEdit->text();
    if (text.isEmpty() || !isPersonKey(m_searchKey)) {
        m_suggestionBox->setSelectionItems({}, {});
        return;
    }
    m_searchModel->addSearchParameter(m_searchKey, text);
    m_searchModel->setPersonSearchOrder(m_searchKey);
    emit searchWithModel(m_searchModel);
}

void LineEdit::searchCompleted(ZephanError errorCode)
{
    if (errorCode != ZephanErrors::kNone || !m_searchModel)
        return;
    const bool withDetails = SettingsHandler::getInstance()
                                 ->value(QLatin1String(SettingsKeys::kShowPersonDetailsSuggestion), true)
                                 .toBool();
    const QList<int> order = nameFieldOrder();
    QStringList results;
    QStringList details;
    for (const PersonModel &person : m_searchModel->personSearchResults()) {
        results.append(personText(*person));
        if (withDetails)
            details.append(person->name(order));
    }
    m_suggestionBox->setSelectionItems(results, details);
}

void LineEdit::personIndexFromSuggestion(int index)
{
    if (!m_searchModel)
        return;
    const QList<PersonModel> persons = m_searchModel->personSearchResults();
    if (index < 0 || index >= persons.size())
        return;
    emit contentChanged();
    emit personSelected(persons.at(index));
}

QString LineEdit::personText(const PersonModelData &person) const
{
    switch (m_searchKey) {
    case SearchModelData::Birthdate:
        return plainText(person.birthDate, DateFormatHelper().dateFormat());
    case SearchModelData::Gender:
        return genderText(person.gender);
    case SearchModelData::EthnicGroup:
        return ethnicText(person.ethnicGroup);
    default:
        return person.text(m_searchKey);
    }
}
