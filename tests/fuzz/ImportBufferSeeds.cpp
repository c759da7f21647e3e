// Writes small valid buffer files of every frame kind into the folder given as argument.

#include "framestore/FrameStore.h"

#include <cstdio>
#include <memory>
#include <string>

using namespace FrameStore;

int main(int argc, char ** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    std::string const folder = argv[1];
    auto save = [&](I_Buffer const & buffer, char const * name, int deflate) {
        auto options = Basis::Parameter::C_Tree::Create();
        options->Set(QStringLiteral("Compression.Deflate"), deflate);
        ExportBuffer(&buffer, QString::fromStdString(folder + '/' + name), options);
    };

    std::unique_ptr<I_Buffer> image(CreateBuffer());
    I_FrameImage * frame = image->CreateFrame(6, 4, 2, DT_WORD);
    static_cast<std::uint16_t *>(frame->GetPlane(0, 1)->GetData())[3] = 4095;
    frame->CreateMaskComponent({});
    frame->SetEnabled(1, 1, 0, false);
    CreateTypedScalarInFrame(frame, "Uncertainty", DT_FLOAT);
    frame->SetScaleX(C_ScaleFactory::GetInstance().CreateLinearScale(0.05, -1, "mm", "x"));
    frame->SetScaleI(C_ScaleFactory::GetInstance().CreatePolynomialScale({1, 2, 0.5}, "counts", "intensity"));
    static_cast<I_Attribute<std::string> *>(frame->CreateAttribute("Camera.Name", AT_STRING))->SetValue("cam");
    static_cast<I_Attribute<Basis::TimeStamp> *>(frame->CreateAttribute("AcqTime", AT_TIMESTAMP))
        ->SetValue(Basis::TimeStamp(12, 500));
    static_cast<I_AttributePlane *>(image->CreateAttribute("Profile", AT_PLANE))->SetPlane(CreatePlane(DT_DOUBLE, 3, 1));
    static_cast<I_Attribute<std::vector<std::uint8_t>> *>(image->CreateAttribute("Blob", AT_BINARY))->SetValue({1, 2, 3});
    save(*image, "image.h5", 0);
    save(*image, "image-deflate.h5", 6);

    std::unique_ptr<I_Buffer> vectors(CreateBuffer());
    vectors->AppendFrame(CreateVectorFrame3C(3, 3, 1, 4));
    vectors->AppendFrame(CreateVectorFrame2C(3, 2, 2, 1));
    save(*vectors, "vectors.h5", 0);

    std::unique_ptr<I_Buffer> colour(CreateBuffer());
    colour->CreateFrame(2, 2, 1, DT_RGB);
    colour->CreateFrame(2, 2, 1, DT_BYTE);
    save(*colour, "colour.h5", 0);
    return 0;
}
