#include <gtest/gtest.h>

#include "Manufacturing/KEPMfgInternalError.h"
#include "System/KEPError.h"

namespace {

class ErrorService : public testing::Test {
 protected:
  void SetUp() override { KEPError::KEPCleanLastError(); }
  void TearDown() override { KEPError::KEPCleanLastError(); }
};

TEST_F(ErrorService, ThereIsNoErrorAtFirst) { EXPECT_EQ(KEPError::KEPGetLastError(), nullptr); }

TEST_F(ErrorService, ReturnedErrorIsTheLastErrorAndAFailure) {
  auto error = std::make_unique<KEPMfgInternalError>("ERR_5004", "ManufacturingError");
  const KEPUnicodeString line = "12";
  error->SetNLSParameters(1, &line);
  error->SetInformationOnErrorType(2);
  EXPECT_EQ(KEPError::GetReturn(std::move(error)), static_cast<HRESULT>(0x80004005));
  const auto* const last = dynamic_cast<const KEPMfgInternalError*>(KEPError::KEPGetLastError());
  ASSERT_NE(last, nullptr);
  EXPECT_EQ(last->GetMessageKey().View(), "ERR_5004");
  EXPECT_EQ(last->GetCatalogue().View(), "ManufacturingError");
  EXPECT_EQ(last->GetInformationOnErrorType(), 2);
  ASSERT_EQ(last->GetNLSParameters().size(), 1U);
  EXPECT_EQ(last->GetNLSParameters().front().View(), "12");
}

TEST_F(ErrorService, LaterErrorReplacesTheEarlier) {
  KEPError::GetReturn(std::make_unique<KEPError>("ERR_1", "Test"));
  KEPError::GetReturn(std::make_unique<KEPError>("ERR_2", "Test"));
  EXPECT_EQ(KEPError::KEPGetLastError()->GetMessageKey().View(), "ERR_2");
}

TEST_F(ErrorService, CleanedErrorIsGone) {
  KEPError::GetReturn(std::make_unique<KEPError>("ERR_1", "Test"));
  KEPError::KEPCleanLastError();
  EXPECT_EQ(KEPError::KEPGetLastError(), nullptr);
}

TEST_F(ErrorService, ErrorTypeIsZeroUntilSet) {
  EXPECT_EQ(KEPMfgInternalError("ERR_5009", "ManufacturingError").GetInformationOnErrorType(), 0);
}

TEST_F(ErrorService, UnknownKeyIsItsOwnMessage) {
  EXPECT_EQ(KEPError("ERR_UNKNOWN", "System").GetNLSMessage().View(), "ERR_UNKNOWN");
  EXPECT_EQ(KEPError("ERR_NULL_HANDLE", "Unknown").GetNLSMessage().View(), "ERR_NULL_HANDLE");
}

TEST_F(ErrorService, ParametersReplaceThoseSetBefore) {
  KEPError error("ERR_POSITION_OUT_OF_LIST", "System");
  const KEPUnicodeString first[] = {"1", "2"};
  const KEPUnicodeString second[] = {"3", "4"};
  error.SetNLSParameters(2, first);
  error.SetNLSParameters(2, second);
  EXPECT_EQ(error.GetNLSMessage().View(), "position 3 is outside a list of 4 entries");
}

TEST_F(ErrorService, CopyIsAnErrorOfItsOwn) {
  KEPError error("ERR_POSITION_OUT_OF_LIST", "System");
  const KEPError copy = error;
  const KEPUnicodeString parameters[] = {"3", "4"};
  error.SetNLSParameters(2, parameters);
  EXPECT_TRUE(copy.GetNLSParameters().empty());
  EXPECT_EQ(copy.GetMessageKey().View(), "ERR_POSITION_OUT_OF_LIST");
}

TEST(Result, FailuresAreNegative) {
  EXPECT_TRUE(KEPSucceeded(S_OK));
  EXPECT_TRUE(KEPFailed(E_FAIL));
  EXPECT_TRUE(KEPFailed(E_UNEXPECTED));
  EXPECT_EQ(static_cast<std::uint32_t>(E_FAIL), 0x80004005U);
  EXPECT_EQ(static_cast<std::uint32_t>(E_UNEXPECTED), 0x8000FFFFU);
}

}  // namespace
