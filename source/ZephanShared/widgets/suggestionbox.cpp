#include "ZephanShared/widgets/suggestionbox.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeWidget>

namespace {

constexpr int kMostRows = 4;
constexpr int kFrameHeight = 3;  // pixels above and below the rows

/// The keys with which a person chooses from the list; all others are for the text.
bool isForList(int key, bool hasCurrentItem)
{
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return hasCurrentItem;
    default:
        return false;
    }
}

/// The keys that end the choice without one. Escape is for the list alone; with the others the person is done
/// with the text, and the list would be in the way.
bool leavesList(int key)
{
    switch (key) {
    case Qt::Key_Escape:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return true;
    default:
        return false;
    }
}

}  // namespace

SuggestionBox::SuggestionBox(QLineEdit *lineEdit)
    : QObject(lineEdit)
    , m_lineEdit(lineEdit)
    , m_popup(new QTreeWidget)
{
    m_popup->setWindowFlags(Qt::Popup);
    m_popup->setObjectName(QStringLiteral("suggestions"));
    m_popup->setFocusProxy(lineEdit);
    m_popup->setColumnCount(2);
    m_popup->header()->hide();
    m_popup->setRootIsDecorated(false);
    m_popup->setUniformRowHeights(true);
    m_popup->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_popup->installEventFilter(this);
    connect(m_popup, &QTreeWidget::itemClicked, this, &SuggestionBox::itemClicked);
    connect(m_popup, &QTreeWidget::itemActivated, this, &SuggestionBox::takeActivatedItem);
}

SuggestionBox::~SuggestionBox()
{
    delete m_popup;
}

QTreeWidget *SuggestionBox::popup() const
{
    return m_popup;
}

void SuggestionBox::setSelectionItems(QStringList searchResults, QStringList searchDetails)
{
    if (searchResults.isEmpty()) {
        m_popup->hide();
        return;
    }
    m_popup->clear();
    const bool withDetails = searchDetails.size() == searchResults.size();
    for (int i = 0; i < searchResults.size(); ++i) {
        auto *item = new QTreeWidgetItem(m_popup);
        item->setText(0, searchResults.at(i));
        if (withDetails) {
            item->setText(1, QLatin1Char('(') + searchDetails.at(i) + QLatin1Char(')'));
            item->setTextAlignment(1, Qt::AlignRight);
        }
    }
    m_popup->resizeColumnToContents(0);
    m_popup->resizeColumnToContents(1);

    const int rowHeight = m_popup->sizeHintForRow(0);
    m_popup->setFixedSize(m_lineEdit->width(),
                          rowHeight * qMin(searchResults.size(), kMostRows) + kFrameHeight);
    m_popup->move(m_lineEdit->mapToGlobal(QPoint(0, m_lineEdit->height())));
    m_popup->setFocus();
    m_popup->show();
}

void SuggestionBox::itemClicked()
{
    m_popup->hide();
    QTreeWidgetItem *item = m_popup->currentItem();
    if (!item)
        return;
    m_lineEdit->setText(item->text(0));
    emit suggestionSelected(m_popup->indexOfTopLevelItem(item));
}

/// Where a single click activates what it is made on, it has chosen the item already.
void SuggestionBox::takeActivatedItem()
{
    if (m_popup->isVisible())
        itemClicked();
}

bool SuggestionBox::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_popup || event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (isForList(key, m_popup->currentItem()))
        return false;
    if (leavesList(key))
        m_popup->hide();
    if (key != Qt::Key_Escape)
        QCoreApplication::sendEvent(m_lineEdit, event);
    return true;
}
