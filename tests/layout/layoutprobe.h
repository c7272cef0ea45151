#ifndef ZORVA_TESTS_LAYOUT_LAYOUTPROBE_H
#define ZORVA_TESTS_LAYOUT_LAYOUTPROBE_H

#include <layout/floatgrouplayout.h>

/// What tests see of a layout's records.
class FloatGroupLayoutProbe
{
public:
    static QList<int> flags(const FloatGroupLayout& layout) { return layout.m_flags; }
    static QVector<QRect> hints(const FloatGroupLayout& layout) { return layout.m_hints; }
    static int generation(const FloatGroupLayout& layout) { return layout.m_generation; }
    static void mark(FloatGroupLayout& layout, int flag) { layout.setFlag(layout.count(), flag); }
    static QSize arrange(const FloatGroupLayout& layout, int width, int columns)
    {
        return layout.sizeHint(width, columns);
    }
    static QList<FloatGroupColumn> sections(const FloatGroupLayout& layout)
    {
        QList<FloatGroupColumn> result;
        layout.scanItems(result);
        return result;
    }
    static QList<FloatGroupColumn> columns(const FloatGroupLayout& layout, int width)
    {
        QList<FloatGroupColumn> parts = sections(layout);
        QList<FloatGroupColumn> result;
        layout.scanSections(result, parts, parts.count(), width);
        return result;
    }
};

#endif
