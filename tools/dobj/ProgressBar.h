#pragma once

#include <string>

namespace Dobj {

//! A one-line progress bar on stderr for work over many frames, drawn only when stderr is a
//! terminal, so scripts and logs get nothing but the result.
class ProgressBar
{
public:
    ProgressBar(std::string label, unsigned int total);
    ~ProgressBar();
    ProgressBar(ProgressBar const &) = delete;
    ProgressBar & operator=(ProgressBar const &) = delete;

    //! One more item done.
    void Step();

private:
    void Draw() const;

    std::string m_label;
    unsigned int m_total;
    unsigned int m_done = 0;
    bool m_visible;
};

} // namespace Dobj
