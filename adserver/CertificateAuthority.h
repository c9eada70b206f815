// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>

#include <memory>

namespace velmora::adserver {

/// A server's certificate and private key, both as PEM. Empty when they could not be made.
struct Identity {
    QByteArray certificatePem;
    QByteArray keyPem;
};

/// A certificate authority with a new EC P-256 key, which is kept in memory only. Every instance
/// has a subject name of its own, so that a client may trust several, and refuses the leaf
/// certificates of an authority that it does not trust.
///
/// Making the authority or a leaf takes a few milliseconds. All members may be called from any
/// thread. If libcrypto fails (no entropy, no memory), the results are empty, and a server does not
/// start with them.
class CertificateAuthority {
public:
    CertificateAuthority();
    ~CertificateAuthority();
    CertificateAuthority(const CertificateAuthority &) = delete;
    CertificateAuthority &operator=(const CertificateAuthority &) = delete;

    /// The authority's certificate, for a client to trust. Valid from yesterday for a year.
    QByteArray caPem() const;

    /// A leaf for "localhost" and 127.0.0.1, valid from yesterday for a year.
    Identity validLeaf() const;

    /// Like validLeaf(), but its validity ended an hour ago.
    Identity expiredLeaf() const;

    /// A leaf that has not expired but is for "elsewhere.example" only, as alternative name and as
    /// common name, since some clients accept either.
    Identity wrongHostLeaf() const;

private:
    class Private;
    std::unique_ptr<Private> m_d;
};

} // namespace velmora::adserver
