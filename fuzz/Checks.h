#pragma once

#include <Parameters/ParametersEngine.h>

#include <Units/Exceptions.h>

#include <stdexcept>
#include <string>
#include <string_view>

/// What holds whatever is done to an engine, checked through what a host can call.
namespace Fuzz {

/// Reports a finding and aborts unless the condition holds.
void require(bool holds, std::string_view rule, std::string_view about = {});

/// Whether the action succeeds. Exceptions other than those that the library documents are findings: they end the
/// program.
template <class Action> bool succeeds(const Action& action) {
    try {
        action();
        return true;
    } catch (const Parameters::ValidationException&) {
    } catch (const Parameters::UnrecognizedIdentifierException&) {
    } catch (const Units::ValidationException&) {
    } catch (const Units::UnrecognizedIdentifierException&) {
    } catch (const std::out_of_range& exception) {
        // Of a subcategory whose parent gave way to an item of another kind; any other comes from within.
        if (std::string_view(exception.what()).rfind("Could not find parent category", 0) != 0) {
            throw;
        }
    }
    return false;
}

/// The queries agree with each other.
void checkQueries(const Parameters::ParametersEngine& engine);

/// The texts that are written for a finished object read back and are written the same again.
void checkWrittenTexts(const Parameters::ParametersEngine& engine, const std::string& typeId);

/// Reading a text without registering it agrees with what the engine answers for a parameter that it does not know.
void checkReading(const Parameters::ParametersEngine& engine, const std::string& text);

} // namespace Fuzz
