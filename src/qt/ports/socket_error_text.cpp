#include "qt/ports/socket_error_text.h"

namespace qt {
namespace {

std::string_view Reason(QAbstractSocket::SocketError error) {
  switch (error) {
    case QAbstractSocket::ConnectionRefusedError:
      return "Conexión rechazada por el servidor";
    case QAbstractSocket::RemoteHostClosedError:
      return "El servidor ha cerrado la conexión";
    case QAbstractSocket::HostNotFoundError:
      return "No se encuentra el servidor";
    case QAbstractSocket::SocketAccessError:
      return "El sistema no permite la conexión con el servidor";
    case QAbstractSocket::SocketResourceError:
      return "El sistema no dispone de más conexiones";
    case QAbstractSocket::SocketTimeoutError:
      return "El servidor no responde";
    case QAbstractSocket::NetworkError:
      return "La red no está disponible o se ha perdido la conexión con el servidor";
    default:
      return "Error de comunicación con el servidor";
  }
}

}  // namespace

std::string SocketErrorText(QAbstractSocket::SocketError error, std::string_view host,
                            std::uint16_t port) {
  std::string text(Reason(error));
  text += " (";
  text += host;
  text += ':';
  text += std::to_string(port);
  text += ").";
  return text;
}

}  // namespace qt
