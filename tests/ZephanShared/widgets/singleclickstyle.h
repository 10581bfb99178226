#ifndef SINGLECLICKSTYLE_H
#define SINGLECLICKSTYLE_H

#include <QProxyStyle>

/// Activates items with a single click, as some desktops do.
class SingleClickStyle : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override
    {
        if (hint == SH_ItemView_ActivateItemOnSingleClick)
            return 1;
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
};

#endif
