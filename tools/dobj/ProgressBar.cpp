#include "ProgressBar.h"

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <utility>

namespace Dobj {

namespace {
constexpr int BarWidth = 30;
}

ProgressBar::ProgressBar(std::string label, unsigned int total)
    : m_label(std::move(label))
    , m_total(total)
    , m_visible(total > 1 && isatty(STDERR_FILENO) == 1)
{
    if (m_visible)
        Draw();
}

ProgressBar::~ProgressBar()
{
    if (m_visible)
        std::fputs("\r\033[K", stderr);
}

void ProgressBar::Step()
{
    ++m_done;
    if (m_visible)
        Draw();
}

void ProgressBar::Draw() const
{
    int const filled = m_total ? int(BarWidth * std::uint64_t(m_done) / m_total) : BarWidth;
    std::string const bar = std::string(std::size_t(filled), '#') + std::string(std::size_t(BarWidth - filled), ' ');
    std::fprintf(stderr, "\r%s [%s] %u/%u", m_label.c_str(), bar.c_str(), m_done, m_total);
    std::fflush(stderr);
}

} // namespace Dobj
