#ifndef CENTRALELEMENT_H
#define CENTRALELEMENT_H

#include "ZephanShared/toolkit/actions.h"
#include "ZephanShared/toolkit/zephanerror.h"

#include <QPointer>
#include <QVariant>
#include <QWidget>

class CommunicationAndDataEngine;
class QAbstractButton;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QToolButton;
class QTranslator;
class QVBoxLayout;
class SupportConnectionHandler;
class ViewStacker;
class ZephanSplash;

/// The main window's central widget: owns the connection handler, the views and the engine, starts the
/// engine, finishes the program's start when the engine reports back, and shuts everything down in order.
///
/// When the engine reports a bad code the element deletes itself, so its owner has to hold it by a `QPointer`
/// and to end the program when it is gone. A start that the engine refuses at once, and its critical errors,
/// end the process with exit code 1 after a message.
class CentralElement : public QWidget
{
    Q_OBJECT

public:
    /// Starts the engine. Its answer has to come after this widget has got its main window.
    ///
    /// \param dataDirectory  with its trailing separator
    /// \param splash         shown until the engine has answered; borrowed
    /// \param translator     the one that is installed; borrowed
    CentralElement(QString dataDirectory, ZephanSplash *splash, QTranslator *translator,
                   QWidget *parent = nullptr);
    /// Shuts the engine down and waits for it, without a time limit.
    ~CentralElement() override;

public slots:
    /// The engine's answer: 0 and 0x04300001 are a good start, which shows the main window with the login
    /// view.
    void start(ZephanError errorCode);
    /// Tells the user of a critical error and ends the process.
    void stop(Actions::Action action, ZephanError error, QVariant errorData);

protected:
    void changeEvent(QEvent *event) override;

private:
    // Start
    void activateLocalActionLog(const QString &dataDirectory);
    void restoreSettings();
    void createParts(const QString &dataDirectory, QTranslator *translator);
    [[noreturn]] void refuseStart();
    void abandonStart(ZephanError errorCode);

    // Header
    void buildHeader();
    void addHeaderButton(QAbstractButton *button, const QString &name, const QString &icon, const char *slot);
    void connectHeader();
    void updateTexts();

    // Shutdown
    void shutDownEngine();

    void logShellAction(Actions::Action action);
    void showWarning(const QString &title, const QString &text, QWidget *parent, Qt::WindowFlags flags);

    QVBoxLayout *m_layout = nullptr;
    ViewStacker *m_viewStacker = nullptr;
    QHBoxLayout *m_header = nullptr;
    QPushButton *m_homeButton = nullptr;
    QToolButton *m_settingsButton = nullptr;
    QToolButton *m_accessControlButton = nullptr;
    QToolButton *m_auditTrailButton = nullptr;
    QToolButton *m_menuButton = nullptr;
    QLabel *m_title = nullptr;
    QPointer<CommunicationAndDataEngine> m_engine;  ///< deletes itself after its shutdown
    SupportConnectionHandler *m_handler = nullptr;
    ZephanSplash *m_splash;
    bool m_settingsParked = false;  ///< the store holds the start's settings instead of the user's
};

#endif
