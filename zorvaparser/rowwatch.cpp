#include "rowwatch_p.h"

namespace Orvane {

// A record that nobody shares is its caller's to delete.
RowWatch::RowWatch(ZorvaDelegate& row)
    : m_form(row.GetFormular())
    , m_record(row.widget && row.widget->ref.loadRelaxed() > 0 ? row.widget : nullptr)
    , m_row(&row)
    , m_older(row.watches)
{
    row.watches = this;
}

void RowWatch::announceWrite(const char* name, const QVariant& value)
{
    m_writtenName = name;
    m_written = &value;
}

RowWatch::~RowWatch()
{
    if (m_row)
        m_row->watches = m_older;
}

} // namespace Orvane
