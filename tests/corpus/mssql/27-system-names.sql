SELECT @@SERVERNAME AS Server, @@VERSION AS Version, @@SPID AS Process, ISNULL(@@LANGUAGE, 'none') AS Lang FROM sysobjects WHERE id = @@ROWCOUNT
