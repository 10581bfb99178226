#include "CommunicationAndData/access/pamlogin.h"

#include <QByteArray>
#include <QFileInfo>

#include <security/pam_appl.h>

#include <cstdlib>
#include <cstring>

namespace {

constexpr const char *kService = "corvane";
constexpr const char *kFallbackService = "login";

/// Where PAM looks for a service: the site's own files, then those of packages.
constexpr const char *kServiceFolders[] = {"/etc/pam.d/", "/usr/lib/pam.d/", "/usr/share/pam.d/"};

void wipe(char *text, size_t size)
{
    if (text)
        explicit_bzero(text, size);
}

/// The bytes of a password, for as long as they are needed.
class Secret
{
public:
    explicit Secret(const QString &text)
        : m_bytes(text.toUtf8())
    {}
    ~Secret()
    {
        wipe(m_bytes.data(), size_t(m_bytes.size()));
    }
    Q_DISABLE_COPY(Secret)

    /// A copy on the C heap, which PAM wipes and frees. The password is handed out once: a second question is
    /// for something else, such as a one-time code.
    char *take()
    {
        if (m_taken)
            return nullptr;
        m_taken = true;
        return strdup(m_bytes.constData());
    }

private:
    QByteArray m_bytes;
    bool m_taken = false;
};

void discard(pam_response *answers, int count)
{
    for (int i = 0; i < count; ++i) {
        if (char *text = answers[i].resp) {
            wipe(text, strlen(text));
            free(text);
        }
    }
    free(answers);
}

/// Answers one message. Notices need no answer; anything but the password can't be given.
bool answerMessage(const pam_message &message, Secret &password, pam_response &answer)
{
    switch (message.msg_style) {
    case PAM_PROMPT_ECHO_OFF:
        answer.resp = password.take();
        return answer.resp != nullptr;
    case PAM_TEXT_INFO:
    case PAM_ERROR_MSG:
        return true;
    default:
        return false;
    }
}

int converse(int count, const pam_message **messages, pam_response **answers, void *secret)
{
    if (count <= 0 || count > PAM_MAX_NUM_MSG)
        return PAM_CONV_ERR;
    auto *given = static_cast<pam_response *>(calloc(size_t(count), sizeof(pam_response)));
    if (!given)
        return PAM_BUF_ERR;
    for (int i = 0; i < count; ++i) {
        if (!answerMessage(*messages[i], *static_cast<Secret *>(secret), given[i])) {
            discard(given, count);
            return PAM_CONV_ERR;
        }
    }
    *answers = given;
    return PAM_SUCCESS;
}

/// One exchange with PAM, ended whatever becomes of it.
class PamExchange
{
public:
    PamExchange(const char *service, const QByteArray &user, Secret &password)
        : m_conversation{converse, &password}
    {
        m_status = pam_start(service, user.constData(), &m_conversation, &m_handle);
    }
    ~PamExchange()
    {
        if (m_handle)
            pam_end(m_handle, m_status);
    }
    Q_DISABLE_COPY(PamExchange)

    bool accepts()
    {
        constexpr int flags = PAM_SILENT | PAM_DISALLOW_NULL_AUTHTOK;
        if (m_status == PAM_SUCCESS)
            m_status = pam_authenticate(m_handle, flags);
        if (m_status == PAM_SUCCESS)
            m_status = pam_acct_mgmt(m_handle, flags);
        return m_status == PAM_SUCCESS;
    }

    QString account() const
    {
        const void *name = nullptr;
        if (pam_get_item(m_handle, PAM_USER, &name) != PAM_SUCCESS || !name)
            return QString();
        return QString::fromLocal8Bit(static_cast<const char *>(name));
    }

private:
    pam_conv m_conversation;
    pam_handle_t *m_handle = nullptr;
    int m_status = PAM_SYSTEM_ERR;
};

const char *service()
{
    for (const char *folder : kServiceFolders) {
        if (QFileInfo::exists(QLatin1String(folder) + QLatin1String(kService)))
            return kService;
    }
    return kFallbackService;
}

/// PAM takes texts that end at the first zero: what follows one would be accepted unseen.
bool isGiven(const QString &text)
{
    return !text.isEmpty() && !text.contains(QChar(QChar::Null));
}

}  // namespace

bool pamAccepts(const QString &user, const QString &password, QString &account)
{
    if (!isGiven(user) || !isGiven(password))
        return false;
    Secret secret(password);
    PamExchange exchange(service(), user.toLocal8Bit(), secret);
    if (!exchange.accepts())
        return false;
    account = exchange.account();
    return !account.isEmpty();
}
