#include <gtest/gtest.h>

#include "app/SupportMail.h"

namespace vantrelle {
namespace {

const SupportContext kContext{"0.1.0", "xcb"};

TEST(SupportMailTest, SubjectAndBodyAreEncodedSoAnyMailHandlerReadsThemWhole) {
    const std::string link = supportMailto("Crash & burn?", "Line one\nLine two = ok", kContext);
    EXPECT_EQ(link,
              "mailto:support@vantrelle.app?subject=Crash%20%26%20burn%3F"
              "&body=Line%20one%0D%0ALine%20two%20%3D%20ok%0D%0A%0D%0A--%0D%0AVantrelle%200.1.0%20on%20xcb");
}

TEST(SupportMailTest, AnEmptySubjectGetsADefaultAndOnlyUnreservedCharactersStayAsTheyAre) {
    const std::string link = supportMailto("", "Grüße\r\n", kContext);
    EXPECT_NE(link.find("subject=Vantrelle%20feedback"), std::string::npos) << link;
    EXPECT_NE(link.find("body=Gr%C3%BC%C3%9Fe%0D%0A%0D%0A"), std::string::npos)
        << "UTF-8 byte by byte, and CRLF stays one line break: " << link;
    EXPECT_EQ(percentEncoded(std::string("Az09-._~/?#%+\0", 14)), "Az09-._~%2F%3F%23%25%2B%00");
}

}  // namespace
}  // namespace vantrelle
