#ifndef WRAPPINGCHECKBOX_H
#define WRAPPINGCHECKBOX_H

#include <QCheckBox>

/// A check box whose text goes on to further lines where it is too long for one, as in many languages.
class WrappingCheckBox : public QCheckBox
{
    Q_OBJECT

public:
    explicit WrappingCheckBox(QWidget *parent = nullptr);

    /// As narrow as the longest word, or a few words, allow.
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    /// What stands around the text: the box and the distance to it.
    int widthBesideText() const;
    QSize textSize(int textWidth) const;
};

#endif
