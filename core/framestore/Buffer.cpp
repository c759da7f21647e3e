#include "framestore/Buffer.h"

#include "framestore/Frame.h"

#include <vector>

namespace FrameStore {

I_Buffer::~I_Buffer() = default;

namespace {

class Buffer final : public I_Buffer
{
public:
    void AppendFrame(I_Frame * frame) override
    {
        if (frame)
            m_frames.emplace_back(frame);
    }
    void Clear() override { m_frames.clear(); }
    void CopyFrom(I_Buffer const & other) override
    {
        if (&other == this)
            return;
        // Copy everything first, so that a failure leaves this buffer as it was.
        std::vector<std::unique_ptr<I_Frame>> frames;
        for (unsigned int i = 0; i < other.GetFrameCount(); ++i)
            frames.push_back(other.GetFrame(i)->Clone());
        std::unique_ptr<I_AttributeBase> attributes = other.GetAttributeRoot()->Clone();
        m_frames = std::move(frames);
        m_attributes = std::move(attributes);
    }
    I_FrameImage * CreateFrame(unsigned int width, unsigned int height, unsigned int depth, E_DataType type) override
    {
        I_FrameImage * frame = CreateImageFrame(type, width, height, depth);
        AppendFrame(frame);
        return frame;
    }
    I_AttributeBase * FindAttribute(std::string const & name) const override { return m_attributes->Find(name); }
    I_AttributeBase * GetAttributeRoot() const override { return m_attributes.get(); }
    I_Frame * GetFrame(unsigned int index) const override
    {
        return index < m_frames.size() ? m_frames[index].get() : nullptr;
    }
    unsigned int GetFrameCount() const override { return unsigned(m_frames.size()); }
    I_AttributeBase * CreateAttribute(std::string const & name, E_AttributeKind kind) override
    {
        return m_attributes->Create(name, kind);
    }
    bool RemoveAttribute(std::string const & name) override { return m_attributes->Remove(name); }

private:
    std::unique_ptr<I_AttributeBase> m_attributes = FrameStore::CreateAttribute(std::string(), AT_GROUP);
    std::vector<std::unique_ptr<I_Frame>> m_frames;
};

} // namespace

I_Buffer * CreateBuffer() { return new Buffer(); }

} // namespace FrameStore
