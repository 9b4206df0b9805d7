#include "intake/product_names.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string_view>

#include "report/product_text.h"

namespace tradebill {
namespace {

// Names as most statements print them; sizes and months of delivery aren't part of them.
// clang-format off
constexpr ProductName kProducts[] = {
    {"cu", "上期所", "沪铜"},
    {"al", "上期所", "沪铝"},
    {"zn", "上期所", "沪锌"},
    {"pb", "上期所", "沪铅"},
    {"ni", "上期所", "沪镍"},
    {"sn", "上期所", "沪锡"},
    {"ao", "上期所", "氧化铝"},
    {"ad", "上期所", "铸造铝合金"},
    {"au", "上期所", "沪金"},
    {"ag", "上期所", "沪银"},
    {"rb", "上期所", "螺纹钢"},
    {"hc", "上期所", "热卷"},
    {"wr", "上期所", "线材"},
    {"ss", "上期所", "不锈钢"},
    {"fu", "上期所", "燃料油"},
    {"bu", "上期所", "沥青"},
    {"ru", "上期所", "橡胶"},
    {"br", "上期所", "丁二烯橡胶"},
    {"sp", "上期所", "纸浆"},
    {"op", "上期所", "胶版印刷纸"},
    {"sc", "能源中心", "原油"},
    {"lu", "能源中心", "低硫燃料油"},
    {"nr", "能源中心", "20号胶"},
    {"bc", "能源中心", "国际铜"},
    {"ec", "能源中心", "集运指数"},
    {"a", "大商所", "豆一"},
    {"b", "大商所", "豆二"},
    {"c", "大商所", "玉米"},
    {"cs", "大商所", "玉米淀粉"},
    {"m", "大商所", "豆粕"},
    {"y", "大商所", "豆油"},
    {"p", "大商所", "棕榈油"},
    {"i", "大商所", "铁矿石"},
    {"j", "大商所", "焦炭"},
    {"jm", "大商所", "焦煤"},
    {"jd", "大商所", "鸡蛋"},
    {"lh", "大商所", "生猪"},
    {"l", "大商所", "塑料"},
    {"v", "大商所", "PVC"},
    {"pp", "大商所", "聚丙烯"},
    {"eg", "大商所", "乙二醇"},
    {"eb", "大商所", "苯乙烯"},
    {"bz", "大商所", "纯苯"},
    {"pg", "大商所", "液化气"},
    {"rr", "大商所", "粳米"},
    {"fb", "大商所", "纤维板"},
    {"bb", "大商所", "胶合板"},
    {"lg", "大商所", "原木"},
    {"SR", "郑商所", "白糖"},
    {"CF", "郑商所", "棉花"},
    {"CY", "郑商所", "棉纱"},
    {"TA", "郑商所", "PTA"},
    {"MA", "郑商所", "甲醇"},
    {"FG", "郑商所", "玻璃"},
    {"SA", "郑商所", "纯碱"},
    {"UR", "郑商所", "尿素"},
    {"SH", "郑商所", "烧碱"},
    {"RM", "郑商所", "菜粕"},
    {"OI", "郑商所", "菜油"},
    {"RS", "郑商所", "菜籽"},
    {"PK", "郑商所", "花生"},
    {"AP", "郑商所", "苹果"},
    {"CJ", "郑商所", "红枣"},
    {"SF", "郑商所", "硅铁"},
    {"SM", "郑商所", "锰硅"},
    {"PF", "郑商所", "短纤"},
    {"PX", "郑商所", "对二甲苯"},
    {"PR", "郑商所", "瓶片"},
    {"PL", "郑商所", "丙烯"},
    {"ZC", "郑商所", "动力煤"},
    {"PM", "郑商所", "普麦"},
    {"WH", "郑商所", "强麦"},
    {"JR", "郑商所", "粳稻"},
    {"LR", "郑商所", "晚籼稻"},
    {"RI", "郑商所", "早籼稻"},
    {"si", "广期所", "工业硅"},
    {"lc", "广期所", "碳酸锂"},
    {"ps", "广期所", "多晶硅"},
    {"pt", "广期所", "铂"},
    {"pd", "广期所", "钯"},
    {"IF", "中金所", "沪深300"},
    {"IH", "中金所", "上证50"},
    {"IC", "中金所", "中证500"},
    {"IM", "中金所", "中证1000"},
    {"IO", "中金所", "沪深300股指期权"},
    {"HO", "中金所", "上证50股指期权"},
    {"MO", "中金所", "中证1000股指期权"},
    {"TS", "中金所", "2年期国债"},
    {"TF", "中金所", "5年期国债"},
    {"T", "中金所", "10年期国债"},
    {"TL", "中金所", "30年期国债"},
};
// clang-format on

}  // namespace

const ProductName* FindProduct(std::string_view contract) {
    const std::string_view code = FutureProductOf(contract, {});
    const auto* const found = std::ranges::find(kProducts, code, &ProductName::code);
    return found != std::end(kProducts) ? found : nullptr;
}

std::span<const ProductName> ProductNames() {
    return kProducts;
}

}  // namespace tradebill
