#include "CommunicationAndData/settings/settingshandler.h"
#include "CommunicationAndData/settings/settingskeys.h"
#include "Corvane/accesscontrol/supportconnectionhandler.h"
#include "Corvane/views/loginview.h"
#include "Corvane/views/translationfiles.h"
#include "ZephanShared/toolkit/languages.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QMap>
#include <QSettings>
#include <QTranslator>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int kComboHeight = 25;
constexpr int kSpacing = 3;
constexpr int kStretch = 1;

}  // namespace

void LoginView::languageChange(int index)
{
    const QString code = m_languageCombo->itemData(index, Qt::UserRole).toString();
    QCoreApplication::removeTranslator(m_translator);
    // It stays in force after this view, up to the end of the program.
    auto *translator = new QTranslator(QCoreApplication::instance());
    if (TranslationFiles::load(*translator, code)) {
        m_translator = translator;
        openSettingsFile(localCachePath())->setValue(LocalCache::kLanguage, code);
    }
    QCoreApplication::installTranslator(m_translator);
}

/// Builds the selector in the present language, in place of the one before.
void LoginView::buildLanguageSelector()
{
    const bool hadFocus = m_languageCombo && m_languageCombo->hasFocus();
    if (m_languageContainer) {
        m_layout->removeWidget(m_languageContainer);
        delete m_languageContainer;
    }

    m_languageContainer = new QWidget(this);
    m_languageContainer->setObjectName(QStringLiteral("language_container"));
    m_languageCombo = new QComboBox(m_languageContainer);
    m_languageCombo->setObjectName(QStringLiteral("language_combo"));
    m_languageCombo->setAccessibleName(tr("Language"));
    m_languageCombo->setFixedHeight(kComboHeight);
    fillLanguageCombo();
    // Only now, since choosing the present language is no change.
    connect(m_languageCombo, SIGNAL(currentIndexChanged(int)), this, SLOT(languageChange(int)));

    auto *label = new QLabel(tr("Language:"), m_languageContainer);
    label->setObjectName(QStringLiteral("language_label"));
    label->setBuddy(m_languageCombo);
    auto *layout = new QVBoxLayout(m_languageContainer);
    layout->setSpacing(kSpacing);
    layout->addWidget(label, kStretch, Qt::AlignLeft);
    layout->addWidget(m_languageCombo, kStretch, Qt::AlignCenter);
    m_layout->addWidget(m_languageContainer, 0, Qt::AlignCenter);
    if (hadFocus)
        m_languageCombo->setFocus();
}

/// One entry for each translation file, sorted by its text. A language that the suite does not know stands
/// there under its code.
void LoginView::fillLanguageCombo()
{
    QVector<QPair<QString, QString>> entries;
    for (const QString &code : TranslationFiles::codes()) {
        const Language *language = findLanguage(code);
        entries.append({language ? tr(language->name) : code, code});
    }
    std::sort(entries.begin(), entries.end());
    for (const auto &[text, code] : entries)
        m_languageCombo->addItem(text, code);

    const QString present = openSettingsFile(localCachePath())
                                ->value(LocalCache::kLanguage, QLatin1String(TranslationFiles::kDefaultCode))
                                .toString();
    m_languageCombo->setCurrentIndex(
        m_languageCombo->findData(present, Qt::UserRole, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

QString LoginView::localCachePath() const
{
    return (m_handler ? m_handler->dataPath() : QString()) + LocalCache::kFileName;
}
