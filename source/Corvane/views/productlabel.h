#ifndef PRODUCTLABEL_H
#define PRODUCTLABEL_H

#include <QWidget>

/// The maker's logo with the program's name below it.
class ProductLabel : public QWidget
{
    Q_OBJECT

public:
    /// \param imagePath  the logo; it is scaled to the width
    /// \param width      of the image and the text, in pixels
    ProductLabel(const QString &imagePath, const QString &text, int width, QWidget *parent);
};

#endif
