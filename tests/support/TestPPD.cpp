#include "tests/support/TestPPD.h"

namespace cardpanels::test {
namespace {

constexpr const char* kHeader = R"PPD(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: UTF-8
*PCFileName: "TEST.PPD"
*Manufacturer: "Test"
*Product: "(Test Card)"
*ModelName: "Test Card"
*ShortNickName: "Test Card"
*NickName: "Test Card"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
)PPD";

constexpr const char* kPageSize = R"(*OpenUI *PageSize/Card Size: PickOne
*OrderDependency: 10 AnySetup *PageSize
*DefaultPageSize: CR80
*PageSize CR80/CR-80: "<</PageSize[243 153]>>setpagedevice"
*PageSize CR79/CR-79: "<</PageSize[238 148]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion/Card Size: PickOne
*OrderDependency: 10 AnySetup *PageRegion
*DefaultPageRegion: CR80
*PageRegion CR80/CR-80: "<</PageSize[243 153]>>setpagedevice"
*PageRegion CR79/CR-79: "<</PageSize[238 148]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: CR80
*ImageableArea CR80/CR-80: "0 0 243 153"
*ImageableArea CR79/CR-79: "0 0 238 148"
*DefaultPaperDimension: CR80
*PaperDimension CR80/CR-80: "243 153"
*PaperDimension CR79/CR-79: "238 148"
)";

std::string ppdOption(const TestOption& option) {
  std::string text = "*OpenUI *" + option.keyword + "/" + option.text + ": PickOne\n" +
                     "*OrderDependency: 20 AnySetup *" + option.keyword + "\n";
  if (option.defaultChoice != "-") {
    const std::string& keyword =
        option.defaultChoice.empty() ? option.choices.at(0).keyword : option.defaultChoice;
    text += "*Default" + option.keyword + ": " + keyword + "\n";
  }
  for (const TestChoice& choice : option.choices) {
    text += "*" + option.keyword + " " + choice.keyword + "/" + choice.text + ": \"\"\n";
  }
  return text + "*CloseUI: *" + option.keyword + "\n";
}

}  // namespace

std::string testPPD(const std::vector<TestOption>& options, const std::string& lines) {
  std::string text = std::string(kHeader) + kPageSize + lines;
  for (const TestOption& option : options) text += ppdOption(option);
  return text;
}

TestOption testOption(const std::string& keyword, const std::string& text, int count,
                      const std::string& defaultChoice) {
  TestOption option{keyword, text, {}, defaultChoice};
  for (int i = 0; i < count; ++i) {
    option.choices.push_back({"Choice" + std::to_string(i), "Choice " + std::to_string(i)});
  }
  return option;
}

std::string testAreaOption(const std::string& keyword) {
  return ppdOption({keyword, keyword, {{"Default", "None"}}, {}}) + "*Custom" + keyword +
         " True/Custom: \"pop\"\n*ParamCustom" + keyword + " Area/Area: 1 string 0 83\n";
}

TestOption laminateOption() {
  return {
      "cardLaminate",
      "Card Laminate",
      {{"None", "None"}, {"Front", "Front Side"}, {"Back", "Back Side"}, {"Both", "Both Sides"}},
      {}};
}

}  // namespace cardpanels::test
