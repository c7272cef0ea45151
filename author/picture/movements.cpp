#include "movements.h"

#include <QHash>

namespace Orvane {
namespace Author {

namespace {

/** One row before and now. */
struct Pair
{
    QString name;
    const PlacedRow* before; // null if it is new
    const PlacedRow* now;
};

/** Tells the rows of one name apart by their order. */
QHash<QString, QVector<const PlacedRow*>> byName(const FormGeometry& geometry)
{
    QHash<QString, QVector<const PlacedRow*>> rows;
    for (const PlacedRow& row : geometry.rows)
        rows[row.name].append(&row);
    return rows;
}

QString pixels(int count)
{
    return qAbs(count) == 1 ? QStringLiteral("1 pixel") : QStringLiteral("%1 pixels").arg(qAbs(count));
}

class Comparison
{
public:
    Comparison(const FormGeometry& before, const FormGeometry& now)
        : m_before(before)
        , m_now(now)
    {
        QHash<QString, QVector<const PlacedRow*>> left = byName(before);
        for (const PlacedRow& row : now.rows) {
            QVector<const PlacedRow*>& same = left[row.name];
            Pair pair{row.name, nullptr, &row};
            if (!same.isEmpty())
                pair.before = same.takeFirst();
            m_pairs.append(pair);
        }
        for (const PlacedRow& row : before.rows) {
            if (left.value(row.name).contains(&row))
                m_gone.append(row.name);
        }
    }

    QStringList words()
    {
        for (const QString& name : qAsConst(m_gone))
            m_words << name + QStringLiteral(": gone");
        tell(&Comparison::coming);
        tell(&Comparison::column);
        tell(&Comparison::section);
        tell(&Comparison::place);
        tell(&Comparison::captionSize);
        tell(&Comparison::controlSize);
        tell(&Comparison::text);
        if (m_before.columns != m_now.columns)
            m_words << QStringLiteral("columns: %1 to %2").arg(m_before.columns).arg(m_now.columns);
        if (m_before.size != m_now.size)
            m_words << QStringLiteral("picture: %1").arg(sizeWords(m_before.size, m_now.size));
        return m_words;
    }

private:
    using Aspect = QString (Comparison::*)(const Pair&) const;

    static QString sizeWords(const QSize& before, const QSize& now)
    {
        return QStringLiteral("%1 x %2 to %3 x %4 pixels")
            .arg(before.width())
            .arg(before.height())
            .arg(now.width())
            .arg(now.height());
    }

    /** A line for each run of neighbours of which the aspect says the same; what is hidden does not part
     * them. */
    void tell(Aspect aspect)
    {
        QVector<const Pair*> run;
        QString running;
        for (const Pair& pair : qAsConst(m_pairs)) {
            const QString words = (this->*aspect)(pair);
            if (words.isEmpty() && !pair.now->isSeen())
                continue;
            if (words != running)
                tellRun(run, running);
            running = words;
            run.append(&pair);
        }
        tellRun(run, running);
    }

    void tellRun(QVector<const Pair*>& run, const QString& words)
    {
        if (!words.isEmpty() && run.size() == 1)
            m_words << QStringLiteral("%1: %2").arg(run.first()->name, words);
        else if (!words.isEmpty())
            m_words << QStringLiteral("%1 to %2 (%3 rows): %4")
                           .arg(run.first()->name, run.last()->name)
                           .arg(run.size())
                           .arg(words);
        run.clear();
    }

    QString coming(const Pair& pair) const
    {
        if (!pair.before)
            return pair.now->isSeen() ? QStringLiteral("new") : QStringLiteral("new, and hidden");
        if (pair.before->isSeen() == pair.now->isSeen())
            return QString();
        return pair.now->isSeen() ? QStringLiteral("to be seen now") : QStringLiteral("hidden now");
    }

    static bool isSeenTwice(const Pair& pair)
    {
        return pair.before && pair.before->isSeen() && pair.now->isSeen();
    }

    QString column(const Pair& pair) const
    {
        if (!isSeenTwice(pair))
            return QString();
        const int before = m_before.columnOf(*pair.before);
        const int now = m_now.columnOf(*pair.now);
        return before == now ? QString() : QStringLiteral("column %1 to %2").arg(before).arg(now);
    }

    QString section(const Pair& pair) const
    {
        if (!isSeenTwice(pair))
            return QString();
        const QString before = m_before.sections.at(pair.before->section).name;
        const QString now = m_now.sections.at(pair.now->section).name;
        return before == now ? QString() : QStringLiteral("section \"%1\" to \"%2\"").arg(before, now);
    }

    QString place(const Pair& pair) const
    {
        if (!isSeenTwice(pair) || !column(pair).isEmpty())
            return QString();
        const QPoint way = pair.now->place().topLeft() - pair.before->place().topLeft();
        QStringList words;
        if (way.y() != 0)
            words << QStringLiteral("%1 %2")
                         .arg(pixels(way.y()))
                         .arg(way.y() > 0 ? QStringLiteral("lower") : QStringLiteral("higher"));
        if (way.x() != 0)
            words << QStringLiteral("%1 to the %2")
                         .arg(pixels(way.x()))
                         .arg(way.x() > 0 ? QStringLiteral("right") : QStringLiteral("left"));
        return words.join(QLatin1String(", "));
    }

    static QString partSize(const QString& what, const PlacedPart& before, const PlacedPart& now)
    {
        if (before.isSeen() != now.isSeen())
            return what + (now.isSeen() ? QStringLiteral(" to be seen now") : QStringLiteral(" hidden now"));
        if (before.place.size() == now.place.size())
            return QString();
        return what + QLatin1Char(' ') + sizeWords(before.place.size(), now.place.size());
    }

    QString captionSize(const Pair& pair) const
    {
        return isSeenTwice(pair)
                   ? partSize(QStringLiteral("caption"), pair.before->caption, pair.now->caption)
                   : QString();
    }

    QString controlSize(const Pair& pair) const
    {
        return isSeenTwice(pair)
                   ? partSize(QStringLiteral("control"), pair.before->control, pair.now->control)
                   : QString();
    }

    QString text(const Pair& pair) const
    {
        if (!isSeenTwice(pair))
            return QString();
        QStringList words;
        if (pair.before->caption.text != pair.now->caption.text)
            words << QStringLiteral("caption \"%1\" to \"%2\"")
                         .arg(pair.before->caption.text, pair.now->caption.text);
        if (pair.before->control.text != pair.now->control.text)
            words << QStringLiteral("text \"%1\" to \"%2\"")
                         .arg(pair.before->control.text, pair.now->control.text);
        return words.join(QLatin1String(", "));
    }

    const FormGeometry& m_before;
    const FormGeometry& m_now;
    QVector<Pair> m_pairs; // all rows of now
    QStringList m_gone;
    QStringList m_words;
};

const FormGeometry* find(const QVector<FormGeometry>& pictures, const FormGeometry& like)
{
    for (const FormGeometry& picture : pictures) {
        if (picture.size.width() == like.size.width() && picture.fontSize == like.fontSize)
            return &picture;
    }
    return nullptr;
}

} // namespace

QStringList movements(const FormGeometry& before, const FormGeometry& now)
{
    return Comparison(before, now).words();
}

QStringList movements(const QVector<FormGeometry>& before, const QVector<FormGeometry>& now)
{
    // A form that opens wider than before is the same picture all the same.
    if (before.size() == 1 && now.size() == 1)
        return movements(before.first(), now.first());
    QStringList words;
    for (const FormGeometry& picture : now) {
        const FormGeometry* const old = find(before, picture);
        if (!old)
            words << QStringLiteral("%1: not in the baseline").arg(picture.title());
        const QStringList moved = old ? movements(*old, picture) : QStringList();
        for (const QString& line : moved)
            words << QStringLiteral("%1: %2").arg(picture.title(), line);
    }
    for (const FormGeometry& picture : before) {
        if (!find(now, picture))
            words << QStringLiteral("%1: in the baseline alone").arg(picture.title());
    }
    return words;
}

} // namespace Author
} // namespace Orvane
