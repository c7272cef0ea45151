#ifndef ZORVA_AUTHOR_FORMSTAGE_H
#define ZORVA_AUTHOR_FORMSTAGE_H

#include <author/live/liveform.h>

#include <QByteArray>
#include <QImage>
#include <QPointer>
#include <QSize>
#include <QStringList>
#include <QWidget>

class FloatGroupLayout;
class QScrollArea;

namespace Orvane {
namespace Author {

/**
 * A live form in a window that nobody sees, for pictures. It has no focus, so that
 * neither a frame nor a blinking cursor tells two pictures apart.
 */
class FormStage
{
public:
    enum Bar { WithBar, WithoutBar };

    /** @p name is the context of the form's translations. */
    explicit FormStage(const QByteArray& description, Bar bar = WithBar, const QString& name = QString());
    FormStage(const FormStage&) = delete;
    FormStage& operator=(const FormStage&) = delete;

    /** False if there is no form in the description; nothing else may be called then. */
    bool exists() const { return m_live.exists(); }
    ZorvaFormular& form() const { return m_live.form(); }
    QWidget* window() const { return m_window; }
    QScrollArea* area() const;
    FloatGroupLayout* layout() const;

    /** Collapses the groups of these headlines, and opens all others; gives the names that are none. */
    QStringList collapse(const QStringList& headlines);
    /** Text size in points. */
    void setTextSize(int points);
    /** The width that the window opens with, in pixels. */
    int openingWidth() const;
    /** Arranges the form at that width, as tall as its rows are; gives the size of the picture. */
    QSize arrange(int width);
    /** What is to be seen now, with that many pixels for each one of the window. */
    QImage picture(int scale = 1) const;

    static constexpr int widest = 16000;   // pixels
    static constexpr int tallest = 32000;  // pixels: painters reach no further
    static constexpr int smallestText = 4; // points
    static constexpr int largestText = 96; // points

private:
    void settle() const;

    LiveForm m_live;
    QPointer<QWidget> m_window; // goes with the live form
};

} // namespace Author
} // namespace Orvane

#endif
