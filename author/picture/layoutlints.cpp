#include "layoutlints.h"

#include <algorithm>

namespace Orvane {
namespace Author {

namespace {

using Findings = QVector<LayoutFinding>;

void add(Findings& findings, const char* id, const QString& row, const QString& message)
{
    findings.append({QLatin1String(id), row, message});
}

QString inOneLine(const QString& text)
{
    constexpr int longest = 40;
    const QString line = text.simplified();
    return line.size() <= longest ? line : line.left(longest - 1) + QChar(0x2026);
}

/** Which part of the text is to be seen; empty if it is all. */
QString clipping(const PlacedPart& part)
{
    const bool isWord = !part.text.trimmed().isEmpty();
    if (!part.isSeen() || !isWord)
        return QString();
    if (part.needed > part.place.width())
        return QStringLiteral("%1 of %2 pixels wide").arg(part.place.width()).arg(part.needed);
    if (part.tall > part.place.height())
        return QStringLiteral("%1 of %2 pixels high").arg(part.place.height()).arg(part.tall);
    return QString();
}

void findClipped(const FormGeometry& geometry, Findings& findings)
{
    for (const PlacedRow& row : geometry.rows) {
        const QString caption = clipping(row.caption);
        if (!caption.isEmpty())
            add(findings, "clipped-caption", row.name,
                QStringLiteral("caption \"%1\" is cut: %2").arg(inOneLine(row.caption.text), caption));
        for (const PlacedPart& part : row.parts) {
            const bool isHead = row.className == QLatin1String("Headline");
            const QString text = clipping(part);
            if (!text.isEmpty())
                add(findings, isHead ? "clipped-caption" : "clipped-text", row.name,
                    QStringLiteral("%1 \"%2\" is cut: %3")
                        .arg(isHead ? QStringLiteral("title") : QStringLiteral("text"), inOneLine(part.text),
                             text));
        }
    }
}

struct Piece
{
    int row;
    const char* what;
    QRect place;
};

// A caption stands in the middle of its place, which is higher where the control begins a line of its own.
QRect inkOf(const PlacedPart& caption)
{
    QRect ink(QPoint(), QSize(caption.needed, caption.tall).boundedTo(caption.place.size()));
    ink.moveCenter(caption.place.center());
    ink.moveLeft(caption.place.left());
    return ink;
}

QVector<Piece> piecesOf(const FormGeometry& geometry)
{
    QVector<Piece> pieces;
    for (int i = 0; i < geometry.rows.size(); ++i) {
        const PlacedRow& row = geometry.rows.at(i);
        if (row.caption.isSeen())
            pieces.append({i, "caption", inkOf(row.caption)});
        for (const PlacedPart& part : row.parts) {
            if (part.isSeen())
                pieces.append({i, "control", part.place});
        }
    }
    std::stable_sort(pieces.begin(), pieces.end(), [](const Piece& left, const Piece& right) {
        return left.place.top() < right.place.top();
    });
    return pieces;
}

QString nameOf(const FormGeometry& geometry, const Piece& piece)
{
    return QStringLiteral("%1 of %2").arg(QLatin1String(piece.what), geometry.rows.at(piece.row).name);
}

void findOverlaps(const FormGeometry& geometry, Findings& findings)
{
    QVector<Piece> open; // those that reach down to where the walk is
    for (const Piece& piece : piecesOf(geometry)) {
        open.erase(
            std::remove_if(open.begin(), open.end(),
                           [&](const Piece& above) { return above.place.bottom() < piece.place.top(); }),
            open.end());
        for (const Piece& other : qAsConst(open)) {
            if (other.place.intersects(piece.place))
                add(findings, "overlap", geometry.rows.at(piece.row).name,
                    QStringLiteral("the %1 lies over the %2")
                        .arg(nameOf(geometry, piece), nameOf(geometry, other)));
        }
        open.append(piece);
    }
}

void findWideRows(const FormGeometry& geometry, Findings& findings)
{
    for (const PlacedRow& row : geometry.rows) {
        const int beyond = row.isSeen() ? row.place().right() - geometry.area.right() : 0;
        if (beyond > 0)
            add(findings, "wide-row", row.name,
                QStringLiteral("ends %1 pixels right of the area, which is %2 wide")
                    .arg(beyond)
                    .arg(geometry.area.width()));
    }
}

/** A head alone is no row, nor is a line or a gap. */
bool holdsSomething(const PlacedRow& row)
{
    return row.isSeen() && row.className != QLatin1String("Headline") &&
           row.className != QLatin1String("Separator") && row.className != QLatin1String("FixedSpacer");
}

void findEmptyColumns(const FormGeometry& geometry, Findings& findings)
{
    QVector<bool> filled(geometry.columns + 1, false);
    QVector<QString> heads(geometry.columns + 1);
    for (const PlacedSection& section : geometry.sections) {
        if (section.collapsed)
            filled[section.column] = true; // as the operator wants it
        if (heads.at(section.column).isEmpty())
            heads[section.column] = section.name;
    }
    for (const PlacedRow& row : geometry.rows) {
        if (holdsSomething(row))
            filled[geometry.columnOf(row)] = true;
    }
    for (int column = 1; column <= geometry.columns; ++column) {
        if (!filled.at(column))
            add(findings, "empty-column", heads.at(column),
                QStringLiteral("column %1 holds heads and no row").arg(column));
    }
}

} // namespace

QVector<LayoutFinding> layoutFindings(const FormGeometry& geometry)
{
    Findings findings;
    findClipped(geometry, findings);
    findOverlaps(geometry, findings);
    findWideRows(geometry, findings);
    findEmptyColumns(geometry, findings);
    return findings;
}

} // namespace Author
} // namespace Orvane
