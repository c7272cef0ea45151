#ifndef ZORVA_LAYOUT_CAPTIONLABEL_P_H
#define ZORVA_LAYOUT_CAPTIONLABEL_P_H

#include <QFont>
#include <QLabel>
#include <QPointer>
#include <QVector>

class CaptionOverflow;

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
    /// are level. -1: none, as in any label. A label is at most as high as its layout
    /// has it, whatever its text needs to be level and whole: @p overflow, not owned,
    /// paints what is below; null: that is not seen.
    void setLevel(int controlHeight, CaptionOverflow* overflow);

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
    bool looksRich() const;
    void readText() const;
    QSize bareHint() const;
    int textTop() const;
    /// How far down from its top the text, which is bare, has anything to see.
    int inkHeight() const;
    bool hasInkBelow() const;
    void drawText(QPainter& painter) const;
    void renewOverflow();
    void setOverflow(const QRect& strip);
    friend class CaptionOverflow;

    // What was measured last.
    mutable QString m_text;
    mutable QFont m_font;
    mutable QSize m_textSize;
    mutable int m_inkHeight = -1; // -1 until asked for
    mutable bool m_looksRich = false;
    mutable bool m_isMeasured = false; // the text, in the font

    int m_level = -1;
    QPointer<CaptionOverflow> m_overflow;
    int m_strip = -1;    // its place there
    QString m_stripText; // that it shows
};

/// Paints what captions have below their labels: strips of the widget that they lie
/// in, whose filter it is.
class CaptionOverflow : public QObject
{
public:
    CaptionOverflow(QWidget* content, QObject* parent);

    /// While one lives the strips that change are gathered, and painted again together
    /// at its end. One by one each would have to be set against all that is due already.
    class Gathering
    {
    public:
        explicit Gathering(CaptionOverflow* overflow);
        ~Gathering();

    private:
        Q_DISABLE_COPY(Gathering)
        QPointer<CaptionOverflow> m_overflow;
    };

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    friend class CaptionLabel;

    struct Strip
    {
        QRect place; // in the content
        CaptionLabel* label;
    };

    QRect place(int strip) const;
    /// Keeps @p strip for @p label, or forgets the one it had.
    void put(CaptionLabel* label, const QRect& strip);
    /// Has @p place painted again, now or with what is being gathered.
    void repaint(const QRect& place);
    void paint(const QRegion& due) const;

    QWidget* const m_content;
    QVector<Strip> m_strips;
    int m_gatherings = 0;
    QRect m_gathered;
};

#endif
