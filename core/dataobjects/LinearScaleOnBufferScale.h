#pragma once

#include "dataobjects/LinearScale.h"

namespace FrameStore {
class I_Scale;
}

namespace DataObjects::Private {

//! A LinearScale that reads and writes a frame's linear scale: nothing is cached, every accessor
//! goes to the frame scale, so an image holding it shares the frame's scale. The base's own
//! fields keep the identity values and are never used. The frame must outlive the view.
class LinearScaleOnBufferScale : public LinearScale
{
public:
    //! Raises Basis::VerificationFailed "Scale does not exist" for null and "Scale is not
    //! linear." for a scale of another kind.
    explicit LinearScaleOnBufferScale(FrameStore::I_Scale * scale);
    //! The copy stands for the same frame scale.
    LinearScaleOnBufferScale(LinearScaleOnBufferScale const & other);
    //! Writes the other's values into this view's frame scale and keeps standing for it: like
    //! every holder of a shared scale, assignment copies values and never rebinds.
    LinearScaleOnBufferScale & operator=(LinearScaleOnBufferScale const & other);
    using LinearScale::operator=;
    ~LinearScaleOnBufferScale() override;

    double GetFactor() const override;
    double GetOffset() const override;
    std::string GetUnit() const override;
    std::string GetDescription() const override;
    //! A frame scale never takes factor 0: Basis::VerificationFailed "Factor of linear scale must
    //! not be 0.", and the frame scale keeps its factor.
    void SetFactor(double factor) override;
    void SetOffset(double offset) override;
    void SetUnit(std::string const & unit) override;
    void SetDescription(std::string const & description) override;

private:
    FrameStore::I_Scale * m_scale;
};

} // namespace DataObjects::Private
