#pragma once

#include "dataobjects/ScalarFields.h"

namespace FrameStore {
class I_Frame;
} // namespace FrameStore

namespace DataObjects::Private {

//! The scalar fields of one z plane of a frame: the frame's typed scalar components, seen and
//! changed in place. Stores nothing of its own; the frame must outlive it and every field it
//! hands out. Names cross to the frame as Latin-1 and are listed sorted.
class ScalarFieldsOnFrame : public ScalarFields
{
public:
    //! A plane index beyond the frame fails when a field is added or read ("Invalid plane index").
    ScalarFieldsOnFrame(FrameStore::I_Frame & frame, unsigned int z);

    using ScalarFields::Get;

    std::shared_ptr<ScalarField<float>> Add(QString const & name) override;
    //! Creates the typed scalar component (or finds the one of that name and type).
    std::shared_ptr<ScalarFieldVariant> Add(FrameStore::E_DataType type, QString const & name) override;
    //! Converts the values into the field of that name, made first if the frame has none.
    std::shared_ptr<ScalarFieldVariant> Add(QString const & name, ScalarFieldVariant const & field) override;
    std::shared_ptr<ScalarFieldVariant> Add(QString const & name, ScalarFieldVariant && field) override;
    std::shared_ptr<ScalarFieldVariant> Add(QString const & name, std::unique_ptr<ScalarFieldVariant> field) override;
    std::shared_ptr<ScalarFieldVariant> Get(QString const & name) override;
    std::shared_ptr<ScalarFieldVariant const> Get(QString const & name) const override;
    void Set(QString const & name, ScalarFieldVariant const & field) override;
    //! Only frames of depth 1, whose components have no other planes to lose.
    void Remove(QString const & name) override;
    bool Contains(QString const & name) const override;
    std::uint64_t GetCount() const override;
    QStringList GetNames() const override;
    Math::Size2T<unsigned int> GetSizeOfScalarFields() const override;
    //! Only frames of depth 1.
    void Clear() override;
    Mapping GetMapping() const override;

private:
    void CheckPlaneIndex() const;

    FrameStore::I_Frame * m_frame;
    std::uint32_t m_z;
};

} // namespace DataObjects::Private
