#include "errors/send_mail.h"

#include "trace/err_trace.h"

namespace mMain {
namespace {

/// Writes what would end a part of the link, or break it, as a link writes it. "%" stays, so that
/// a text may bring escapes of its own.
std::string Escaped(std::string_view text) {
  std::string escaped;
  for (std::size_t i = 0; i < text.size(); ++i) {
    switch (text[i]) {
      case '&':
        escaped += "%26";
        break;
      case ' ':
        escaped += "%20";
        break;
      case '\r':
        escaped += "%0D";
        break;
      case '\n':
        escaped += "%0A";
        break;
      default:
        escaped += text[i];
    }
  }
  return escaped;
}

std::string Query(const Mail& mail) {
  std::string query;
  if (!mail.Subject.empty()) query += "&Subject=" + Escaped(mail.Subject);
  if (!mail.Body.empty()) query += "&Body=" + Escaped(mail.Body) + "%0D%0A";
  if (!mail.CC.empty()) query.append("&CC=").append(mail.CC);
  if (!mail.bcc.empty()) query.append("&BCC=").append(mail.bcc);
  // The key is spelled so; mail programs pass over what they don't know.
  if (!mail.Attachement.empty()) query.append("&Attacth=\"").append(mail.Attachement).append("\"");
  if (!query.empty()) query.front() = '?';
  return query;
}

}  // namespace

std::string MailLink(const Mail& mail) {
  return std::string("mailto:").append(mail.Address).append(Query(mail));
}

void SendMail(Shell& shell, const Mail& mail) {
  const auto& [Address, Subject, Body, CC, bcc, Attachement] = mail;
  ErrTrace::inner("mMain.SendMail(lhWnd,Address,Subject,Body,CC,bcc,Attachement)",
                  ErrTrace::args(nullptr, Address, Subject, Body, CC, bcc, Attachement),
                  [&] { shell.OpenLink(MailLink(mail)); });
}

}  // namespace mMain
