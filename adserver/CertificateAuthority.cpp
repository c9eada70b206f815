// SPDX-License-Identifier: Apache-2.0
#include "adserver/CertificateAuthority.h"

#include <openssl/bn.h>
#include <openssl/ec.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>

namespace velmora::adserver {

namespace {

constexpr long Hour = 3600; // seconds
constexpr long Day = 24 * Hour;
constexpr long Year = 365 * Day;

struct Deleter {
    void operator()(BIO *object) const { BIO_free(object); }
    void operator()(BIGNUM *object) const { BN_free(object); }
    void operator()(EVP_PKEY *object) const { EVP_PKEY_free(object); }
    void operator()(X509 *object) const { X509_free(object); }
    void operator()(X509_EXTENSION *object) const { X509_EXTENSION_free(object); }
};
template<typename T>
using Owned = std::unique_ptr<T, Deleter>;

Owned<EVP_PKEY> newKey() {
    return Owned<EVP_PKEY>(EVP_EC_gen("P-256"));
}

QByteArray randomHex() {
    QByteArray bytes(8, '\0');
    if (RAND_bytes(reinterpret_cast<unsigned char *>(bytes.data()),
                   static_cast<int>(bytes.size())) != 1)
        return {};
    return bytes.toHex();
}

bool setRandomSerial(X509 *certificate) {
    const Owned<BIGNUM> number(BN_new());
    return number && BN_rand(number.get(), 120, BN_RAND_TOP_ONE, BN_RAND_BOTTOM_ANY) == 1 &&
           BN_to_ASN1_INTEGER(number.get(), X509_get_serialNumber(certificate)) != nullptr;
}

bool setCommonName(X509 *certificate, const QByteArray &name) {
    const auto *bytes = reinterpret_cast<const unsigned char *>(name.constData());
    return X509_NAME_add_entry_by_txt(X509_get_subject_name(certificate), "CN", MBSTRING_UTF8,
                                      bytes, static_cast<int>(name.size()), -1, 0) == 1;
}

bool addExtension(X509 *certificate, X509 *issuer, int nid, const QByteArray &value) {
    X509V3_CTX context;
    X509V3_set_ctx(&context, issuer, certificate, nullptr, nullptr, 0);
    const Owned<X509_EXTENSION> extension(
        X509V3_EXT_conf_nid(nullptr, &context, nid, value.constData()));
    return extension && X509_add_ext(certificate, extension.get(), -1) == 1;
}

// A certificate that still lacks its issuer, extensions and signature.
Owned<X509> newCertificate(const QByteArray &commonName, EVP_PKEY *key, long endsIn) {
    Owned<X509> certificate(X509_new());
    if (!certificate || !key || commonName.isEmpty() ||
        X509_set_version(certificate.get(), X509_VERSION_3) != 1 ||
        !setRandomSerial(certificate.get()) || !setCommonName(certificate.get(), commonName) ||
        X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -Day) == nullptr ||
        X509_gmtime_adj(X509_getm_notAfter(certificate.get()), endsIn) == nullptr ||
        X509_set_pubkey(certificate.get(), key) != 1)
        return nullptr;
    return certificate;
}

template<typename Write>
QByteArray pemOf(Write write) {
    const Owned<BIO> bio(BIO_new(BIO_s_mem()));
    if (!bio || write(bio.get()) != 1)
        return {};
    const char *bytes = nullptr;
    const long size = BIO_get_mem_data(bio.get(), &bytes);
    return QByteArray(bytes, size);
}

QByteArray pemOf(X509 *certificate) {
    return pemOf([=](BIO *bio) { return PEM_write_bio_X509(bio, certificate); });
}

QByteArray pemOf(EVP_PKEY *key) {
    return pemOf([=](BIO *bio) {
        return PEM_write_bio_PrivateKey(bio, key, nullptr, nullptr, 0, nullptr, nullptr);
    });
}

} // namespace

class CertificateAuthority::Private {
public:
    Private() : m_key(newKey()) {
        const QByteArray name = "Velmora development authority " + randomHex();
        Owned<X509> certificate = newCertificate(name, m_key.get(), Year);
        if (!certificate)
            return;
        X509 *raw = certificate.get();
        if (X509_set_issuer_name(raw, X509_get_subject_name(raw)) == 1 &&
            addExtension(raw, raw, NID_basic_constraints, "critical,CA:TRUE,pathlen:0") &&
            addExtension(raw, raw, NID_key_usage, "critical,keyCertSign,cRLSign") &&
            addExtension(raw, raw, NID_subject_key_identifier, "hash") &&
            X509_sign(raw, m_key.get(), EVP_sha256()) > 0)
            m_certificate = std::move(certificate);
    }

    Identity leaf(const QByteArray &commonName, const QByteArray &names, long endsIn) const {
        const Owned<EVP_PKEY> key = newKey();
        const Owned<X509> certificate = newCertificate(commonName, key.get(), endsIn);
        if (!certificate || !m_certificate)
            return {};
        X509 *raw = certificate.get();
        X509 *issuer = m_certificate.get();
        if (X509_set_issuer_name(raw, X509_get_subject_name(issuer)) != 1 ||
            !addExtension(raw, issuer, NID_basic_constraints, "critical,CA:FALSE") ||
            !addExtension(raw, issuer, NID_key_usage, "critical,digitalSignature") ||
            !addExtension(raw, issuer, NID_ext_key_usage, "serverAuth") ||
            !addExtension(raw, issuer, NID_subject_alt_name, names) ||
            !addExtension(raw, issuer, NID_subject_key_identifier, "hash") ||
            !addExtension(raw, issuer, NID_authority_key_identifier, "keyid:always") ||
            X509_sign(raw, m_key.get(), EVP_sha256()) <= 0)
            return {};
        return {pemOf(raw), pemOf(key.get())};
    }

    QByteArray pem() const { return m_certificate ? pemOf(m_certificate.get()) : QByteArray(); }

private:
    Owned<EVP_PKEY> m_key;
    Owned<X509> m_certificate;
};

CertificateAuthority::CertificateAuthority() : m_d(std::make_unique<Private>()) {}

CertificateAuthority::~CertificateAuthority() = default;

QByteArray CertificateAuthority::caPem() const {
    return m_d->pem();
}

Identity CertificateAuthority::validLeaf() const {
    return m_d->leaf("localhost", "DNS:localhost,IP:127.0.0.1", Year);
}

Identity CertificateAuthority::expiredLeaf() const {
    return m_d->leaf("localhost", "DNS:localhost,IP:127.0.0.1", -Hour);
}

Identity CertificateAuthority::wrongHostLeaf() const {
    return m_d->leaf("elsewhere.example", "DNS:elsewhere.example", Year);
}

} // namespace velmora::adserver
