#include "Corvane/views/producttexts.h"

#include <QCoreApplication>

QString ProductTexts::makersNotice()
{
    return QCoreApplication::translate("ProductTexts", "© 2026 Halvorn. All rights reserved.");
}

QString ProductTexts::legalNote()
{
    return QCoreApplication::translate(
        "ProductTexts", "Using this program means accepting the terms in the file Disclaimer.txt, which is "
                        "delivered with it.");
}
