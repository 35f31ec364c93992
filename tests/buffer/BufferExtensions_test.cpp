#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "KEPIMfgBufferCircle.h"
#include "KEPIMfgBufferComment.h"
#include "KEPIMfgBufferCorrectorNumber.h"
#include "KEPIMfgBufferFeedrate.h"
#include "KEPIMfgBufferHelix.h"
#include "KEPIMfgBufferHoleNumber.h"
#include "KEPIMfgBufferPoint.h"
#include "KEPIMfgBufferRotate.h"
#include "KEPIMfgBufferSeqMotionNumber.h"
#include "KEPIMfgBufferSpindle.h"
#include "KEPIMfgBufferTLAxis.h"
#include "host/modeler/Document.h"

namespace {

struct Buffer {
  const KEPMetaClass* interfaceClass;
  const char* className;
};

const std::vector<Buffer>& buffers() {
  static const std::vector<Buffer> kBuffers = {
      {KEPInterfaceId<KEPIMfgBufferCircle>(), "KEPMfgBufferCircle"},
      {KEPInterfaceId<KEPIMfgBufferComment>(), "KEPMfgBufferComment"},
      {KEPInterfaceId<KEPIMfgBufferCorrectorNumber>(), "KEPMfgBufferCorrectorNumber"},
      {KEPInterfaceId<KEPIMfgBufferFeedrate>(), "KEPMfgBufferFeedrate"},
      {KEPInterfaceId<KEPIMfgBufferHelix>(), "KEPMfgBufferHelix"},
      {KEPInterfaceId<KEPIMfgBufferHoleNumber>(), "KEPMfgBufferHoleNumber"},
      {KEPInterfaceId<KEPIMfgBufferPoint>(), "KEPMfgBufferPoint"},
      {KEPInterfaceId<KEPIMfgBufferRotate>(), "KEPMfgBufferRotate"},
      {KEPInterfaceId<KEPIMfgBufferSeqMotionNumber>(), "KEPMfgBufferSeqMotionNumber"},
      {KEPInterfaceId<KEPIMfgBufferSpindle>(), "KEPMfgBufferSpindle"},
      {KEPInterfaceId<KEPIMfgBufferTLAxis>(), "KEPMfgBufferTLAxis"},
  };
  return kBuffers;
}

KEPBaseUnknown_var ask(const KEPIContainer_var& container, const KEPMetaClass* interfaceClass) {
  return KEPBaseUnknown_var::Adopt(container->QueryInterface(interfaceClass));
}

TEST(BufferExtensions, ContainerGivesElevenDistinctObjects) {
  const auto document = host::Document::create();
  std::set<KEPBaseUnknown*> objects;
  for (const Buffer& buffer : buffers()) {
    objects.insert(ask(document->features(), buffer.interfaceClass).Get());
  }
  EXPECT_EQ(objects.size(), 11U);
  EXPECT_FALSE(objects.contains(nullptr));
}

TEST(BufferExtensions, EveryObjectKnowsItsClass) {
  const auto document = host::Document::create();
  for (const auto& [interfaceClass, className] : buffers()) {
    const KEPBaseUnknown_var object = ask(document->features(), interfaceClass);
    ASSERT_NE(object->GetMetaObject(), nullptr);
    EXPECT_EQ(object->GetMetaObject()->GetName(), className);
    EXPECT_EQ(object->GetMetaObject()->GetBase(), interfaceClass);
    EXPECT_EQ(object->GetImpl(), document->features()->GetImpl());
  }
}

TEST(BufferExtensions, AskingTwiceGivesTheSameBufferWithItsValues) {
  const auto document = host::Document::create();
  for (const Buffer& buffer : buffers()) {
    EXPECT_EQ(ask(document->features(), buffer.interfaceClass).Get(),
              ask(document->features(), buffer.interfaceClass).Get());
  }
  KEPIMfgBufferHoleNumber_var(document->features())->SetNumber(4);
  int number = 0;
  KEPIMfgBufferHoleNumber_var(document->features())->GetNumber(number);
  EXPECT_EQ(number, 4);
}

TEST(BufferExtensions, BufferGivesTheOtherBuffersOfItsContainer) {
  const auto document = host::Document::create();
  const KEPIMfgBufferPoint_var point(document->features());
  const KEPIMfgBufferTLAxis_var axis(point);
  EXPECT_EQ(axis.Get(), KEPIMfgBufferTLAxis_var(document->features()).Get());
  EXPECT_EQ(KEPIContainer_var(axis).Get(), document->features().Get());
}

TEST(BufferExtensions, TwoDocumentsHaveBuffersOfTheirOwn) {
  const auto first = host::Document::create();
  const auto second = host::Document::create();
  KEPIMfgBufferHoleNumber_var(first->features())->SetNumber(4);
  int number = 0;
  KEPIMfgBufferHoleNumber_var(second->features())->GetNumber(number);
  EXPECT_EQ(number, -1);
}

TEST(BufferExtensions, HandlesShareTheCountOfTheContainer) {
  const auto document = host::Document::create();
  const KEPIContainer_var container = document->features();
  const int before = container->GetReferenceCount();
  for (const Buffer& buffer : buffers()) {
    const KEPBaseUnknown_var object = ask(container, buffer.interfaceClass);
    EXPECT_EQ(container->GetReferenceCount(), before + 1);
    EXPECT_EQ(object->GetReferenceCount(), before + 1);
  }
  EXPECT_EQ(container->GetReferenceCount(), before);
}

TEST(BufferExtensions, BufferOutlivesItsDocumentWhileAHandleHoldsIt) {
  auto document = host::Document::create();
  const KEPIMfgBufferHoleNumber_var hole(document->features());
  hole->SetNumber(9);
  document = nullptr;
  int number = 0;
  hole->GetNumber(number);
  EXPECT_EQ(number, 9);
  EXPECT_EQ(hole->GetReferenceCount(), 1);
}

TEST(BufferExtensions, FeatureTypeGivesNoBuffer) {
  const auto document = host::Document::create();
  const auto type = KEPISpecObject_var::Adopt(document->features()->FindStartUp("MfgPPCommand"));
  const int before = type->GetReferenceCount();
  for (const Buffer& buffer : buffers()) {
    EXPECT_EQ(type->QueryInterface(buffer.interfaceClass), nullptr) << buffer.className;
  }
  EXPECT_EQ(type->GetReferenceCount(), before);
}

}  // namespace
