#pragma once

#include <string>
#include <string_view>

#include "platform/services.h"

namespace mMain {

/// What a message begins with; empty parts stay out of its link.
struct Mail {
  std::string_view Address;
  std::string_view Subject = {};
  std::string_view Body = {};
  std::string_view CC = {};
  std::string_view bcc = {};
  std::string_view Attachement = {};
};

/// The link that makes the user's mail program begin that message.
std::string MailLink(const Mail& mail);

/// Opens that link; whether a mail program took it isn't looked at.
void SendMail(Shell& shell, const Mail& mail);

}  // namespace mMain
