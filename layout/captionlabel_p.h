#ifndef ZORVA_LAYOUT_CAPTIONLABEL_P_H
#define ZORVA_LAYOUT_CAPTIONLABEL_P_H

#include <QFont>
#include <QLabel>

/// A label that measures a plain text once for all its hints. A QLabel shapes it
/// three times, which is a third of the time that a form takes to appear. The
/// hints are those of a QLabel, to the pixel.
class CaptionLabel : public QLabel
{
public:
    using QLabel::QLabel;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// The height of the control that the text stands beside: the middles of both
    /// are level as far as the label has room. -1: none, as in any label.
    void setLevel(int controlHeight);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// Whether the hints depend on the bare text alone.
    bool isBare() const;
    QSize bareHint() const;
    int textTop(int textHeight) const;

    // What was measured last.
    mutable QString m_text;
    mutable QFont m_font;
    mutable QSize m_textSize;

    int m_level = -1;
};

#endif
