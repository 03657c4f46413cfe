#include "number_option.h"

#include "platform/text.h"

namespace quillon {

CLI::Option& AddNumberOption(CLI::App& command, const std::string& name, double& target,
                             const std::string& description) {
    const auto take = [&target, name](const std::string& text) {
        if (!ScanNumber(text, target)) throw CLI::ValidationError(name, text + " is not a number");
    };
    return *command.add_option_function<std::string>(name, take, description)->type_name("NUMBER");
}

}  // namespace quillon
