#include "Corvane/accesscontrol/pickersteps.h"

#include "support/userinput.h"

#include <QComboBox>
#include <QRadioButton>
#include <QSysInfo>
#include <QTest>

QString onThisComputer(const QString &name)
{
    return QSysInfo::machineHostName() + QLatin1Char('\\') + name;
}

QList<QRadioButton *> accounts(QDialog &dialog)
{
    return dialog.findChildren<QRadioButton *>();
}

bool isSavable(QDialog &dialog)
{
    return shown<QPushButton>(dialog, "save_button")->isEnabled();
}

EditorSteps::Step chooseDomain(int index)
{
    return [index](QDialog &dialog) {
        chooseEntry(shown<QComboBox>(dialog, "domain_combo"), index);
    };
}

EditorSteps::Step clickAccount(int index)
{
    return [index](QDialog &dialog) {
        QRadioButton *button = accounts(dialog).value(index);
        QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button->height() / 2));
    };
}

OperatorModel pick(bool group, const QList<EditorSteps::Step> &steps, const QStringList &domains)
{
    const EditorSteps run(steps);
    const OperatorModel oper =
        group ? AccessUserWizard::newWindowsGroup(domains)
              : AccessUserWizard::newWindowsUser(domains, organizations(), departments());
    if (!run.areDone())
        qFatal("Not all steps were done");
    return oper;
}
