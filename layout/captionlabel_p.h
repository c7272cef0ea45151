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
    /// are level. -1: none, as in any label.
    void setLevel(int controlHeight);

    /// A label is at most as high as its layout has it, whatever its text needs to
    /// be level and whole. The rest of the text, below the label, is painted by what
    /// the label lies in (see CaptionOverflow). In coordinates of the parent; empty
    /// if the label holds the whole text.
    QRect overflow() const { return m_overflow; }
    /// Paints it with a painter of the parent.
    void paintOverflow(QPainter& painter) const;
    /// Whether any label of the process has one.
    static bool anyOverflows();

    ~CaptionLabel() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// Whether the hints depend on the bare text alone.
    bool isBare() const;
    QSize bareHint() const;
    int textTop() const;
    void drawText(QPainter& painter) const;
    void renewOverflow();
    void setOverflow(const QRect& overflow);

    // What was measured last.
    mutable QString m_text;
    mutable QFont m_font;
    mutable QSize m_textSize;

    int m_level = -1;
    QRect m_overflow;
    QString m_overflowText; // that it shows
};

/// Paints what captions have below their labels. A filter of the widget that they
/// lie in, whose layout knows them.
class CaptionOverflow : public QObject
{
public:
    CaptionOverflow(QWidget* content, QObject* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;
};

#endif
